// What the program asks and tells, as one interface: the logic goes through it and so runs without a display.
//
// toolkit::DialogBoxes shows message boxes, input boxes and file dialogs; tests have a fake that answers from a list.
// Every call waits for its answer.
#pragma once

#include <memory>
#include <optional>

#include <QString>

namespace workspace {

/// A message: what happened, what is safe, what to do.
struct Message {
    QString text;
    QString title{};   ///< empty: the program's name
    QString details{}; ///< line, file, cause, the original words of a failure; shown on request
    QString note{};    ///< what stands below the text at once: where the text itself is fixed
};

/// What a question puts at risk: where something is deleted or replaced the harmless button is the default.
enum class Risk { None, Loss };

/// Long work that is seen, and can be given up.
class Progress {
  public:
    virtual ~Progress() = default;
    /// \param share  done of the whole, 0..1; less than what was told before is passed over
    /// \return false once the user has given up: leave the old state whole then
    virtual bool advance(double share) = 0;
};

/// The limits of a number that is asked for.
struct NumberLimits {
    int least;
    int most;
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// OK and Cancel. \return whether OK was pressed
    virtual bool confirm(const Message& question, Risk risk = Risk::None) = 0;
    bool confirm(const QString& text, const QString& title, Risk risk = Risk::None) {
        return confirm(Message{text, title}, risk);
    }

    virtual void tell(const Message& message) = 0;
    void tell(const QString& text, const QString& title) { tell(Message{text, title}); }
    /// The same with the sign of a failure.
    virtual void warn(const Message& message) = 0;

    /// A line of text. \return nothing on Cancel
    virtual std::optional<QString> askText(const QString& prompt, const QString& title,
                                           const QString& proposed = {}) = 0;

    /// A line that nobody may read over the user's shoulder. \return nothing on Cancel. Here: as any other line
    virtual std::optional<QString> askSecret(const QString& prompt, const QString& title) {
        return askText(prompt, title);
    }

    /// A whole number. What is none, or lies outside the limits, is told ("请输入数字" under "输入错误") and asked
    /// again. \return nothing on Cancel
    std::optional<int> askNumber(const QString& prompt, const QString& title, const QString& proposed,
                                 NumberLimits limits);

    /// Begins long work. \param caption  what is done; empty: the window's title says it
    /// \return what to report to; the work is over when it goes. Here: work that nobody sees or ends
    virtual std::unique_ptr<Progress> progress(const QString& caption);

    /// \param filter  "Text(*.txt)|*.txt": what is shown, a bar, the pattern  \return the file, empty on Cancel
    virtual QString chooseFile(const QString& folder, const QString& filter) = 0;

    /// A file to write; whether it is there already is not asked. \param proposed  folder and name
    /// \param filter  as above, kind after kind  \return the file, with the ending of the chosen kind unless the name
    /// has the ending of one; empty on Cancel. Here: Cancel
    virtual QString chooseNewFile(const QString& proposed, const QString& filter);
};

} // namespace workspace
