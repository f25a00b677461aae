// The selection pad: which reds and blues are chosen, which reds are bankers (胆), and in what order.
//
// One object for the process. The main window, the trend view, the follow table and the saved selections all press it
// and all hear of it through its signals; generators read the lists. A red is free, selected or a banker, never two
// of these at once. Everything here costs at most one walk over 38 numbers.
//
// The state lies open under the names that the whole system uses. Only the pad's own operations change it, with two
// exceptions: a generator sorts Redlist by sortReds(), and sets Genreds.
//
// Lists and marks are counted from 1: Redlist[1]..Redlist[Redcnt], Redsel[number].
#pragma once

#include <array>
#include <cstdint>

#include <QObject>
#include <QString>

namespace selection {

class Pad : public QObject {
    Q_OBJECT
  public:
    static constexpr int kMostReds = 38;
    static constexpr int kMostBlues = 18;
    static constexpr int kBetReds = 6;

    using RedSlots = std::array<std::int16_t, kMostReds + 1>;
    using BlueSlots = std::array<std::int16_t, kMostBlues + 1>;

    /// \param reds  highest red, 28..38  \param blues  highest blue, 12..18
    explicit Pad(int reds = 33, int blues = 16, QObject* parent = nullptr);

    // Counts, lists in order of selection, marks and places by number.
    std::int16_t Redcnt = 0;  ///< selected reds that are not bankers
    std::int16_t Bluecnt = 0; ///< selected blues
    std::int16_t Dancnt = 0;  ///< bankers
    RedSlots Redlist{};
    BlueSlots Bluelist{};
    RedSlots Danlist{};
    std::array<bool, kMostReds + 1> Redsel{};
    std::array<bool, kMostBlues + 1> Bluesel{};
    std::array<bool, kMostReds + 1> Danmark{};
    RedSlots Redpos{};          ///< place in Redlist, 0 when not selected
    BlueSlots Bluepos{};        ///< place in Bluelist, 0 when not selected
    RedSlots Danpos{};          ///< place in Danlist, 0 when no banker
    bool Bankermode = false;    ///< Dancnt > 0
    std::int16_t Lastclick = 0; ///< the red last pressed, with either button: mnuDan() acts on it
    std::int32_t Zunum = 0;     ///< bets of the status text
    std::int16_t Genreds = 6;   ///< how many reds the next generation uses

    /// Whether a red's button stands pressed. It follows the selection, but becoming a banker leaves it as it was.
    std::array<bool, kMostReds + 1> Redvalue{};

    // A left press by value. Numbers outside the rule are passed over.
    void pressRed(int number);
    void pressBlue(int number);
    /// A right press on a red: notes the number for mnuDan() and changes nothing else.
    void pointAtRed(int number);
    /// 胆-选择/取消 on Lastclick: a free or selected number becomes a banker, a banker becomes free.
    void mnuDan();

    void selectAllReds();
    void invertReds(); ///< bankers stay
    void clearReds();  ///< bankers too
    void selectAllBlues();
    void invertBlues();
    void clearBlues();

    /// Another rule: numbers above it leave the pad as if they had been pressed once more. A rule that all chosen
    /// numbers keep changes no choice, so that a simulated draw goes on undisturbed.
    void setRule(int reds, int blues);
    int reds() const { return m_reds; }
    int blues() const { return m_blues; }

    /// Redlist ascending, as every generator wants it. Redpos and the text of the reds stay as they were until the
    /// next operation, on purpose.
    void sortReds();

    /// Whether a draw can be started: more than six reds and bankers together.
    bool startEnabled() const { return m_startEnabled; }
    /// The count of bets and their cost; what it last was while it cannot be computed, empty after a clearing.
    const QString& statusText() const { return m_statusText; }
    /// The numbers in order, a blank in front of each, without leading zeros: " 3 17 22".
    const QString& redText() const { return m_redText; }
    const QString& danText() const { return m_danText; }
    const QString& blueText() const { return m_blueText; }

  signals:
    void changed();
    /// The reds or bankers were changed, other than by a clearing; before changed().
    void redsChanged();
    /// The blues were changed, other than by a clearing; before changed().
    void bluesChanged();
    /// The reds were cleared: the draw stops, the seven-number wheel entries go, the size of a draw is 6 again.
    void redsCleared();
    /// There are bankers after a change of the reds: what a draw has counted no longer fits the selection. Before
    /// redsChanged().
    void bankersChosen();

  private:
    bool isRed(int number) const { return number >= 1 && number <= m_reds; }
    bool isBlue(int number) const { return number >= 1 && number <= m_blues; }
    void addRed(int number);
    void dropRed(int number);
    void addDan(int number);
    void dropDan(int number);
    void addBlue(int number);
    void dropBlue(int number);
    void rebuildTexts();
    void tellReds();
    void tellBlues();
    void updateStatusText();

    int m_reds;
    int m_blues;
    bool m_startEnabled = false;
    QString m_statusText;
    QString m_redText;
    QString m_danText;
    QString m_blueText;
};

} // namespace selection
