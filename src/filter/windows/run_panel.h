// The controls that steer every run of a filter window: mode, keep or remove, position boxes.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "filter/member.h"
#include "filter/window_state.h"
#include "toolkit/card.h"
#include "toolkit/segments.h"

namespace filter {

class RunPanel : public toolkit::Card {
    Q_OBJECT

  public:
    RunPanel(const FilterMember& member, QWidget* parent);

    /// Puts mode, choice and position boxes into `state`.
    void read(WindowState& state) const;
    /// Fills them with `state`; a mode is told as a press would be.
    void write(const WindowState& state);
    bool keeps() const { return m_keep->isChecked(); }

  signals:
    void modePressed(filter::Mode mode);
    void keepClicked();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void applyColours();
    void buildModes(bool lists);
    void buildKeep();
    void buildPositions(const FilterMember& member);
    void chooseMode(Mode mode);
    QLabel* makeCaption(const QString& name, const QString& caption);

    QList<QLabel*> m_captions;

    toolkit::Segment* m_range = nullptr;
    toolkit::Segment* m_mean = nullptr;
    toolkit::Segment* m_list = nullptr; ///< null where there are no lists
    QLabel* m_explains = nullptr;       ///< what the chosen mode compares
    QComboBox* m_percent = nullptr;
    toolkit::Segment* m_keep = nullptr;
    toolkit::Segment* m_remove = nullptr;
    std::array<QCheckBox*, 8> m_positions{};
};

} // namespace filter
