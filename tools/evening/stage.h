// The hands and eyes of the scripted evening: real mouse and key events on controls that are found by name, and
// pictures of the screen. Whatever a user could not have done ends the evening with a message and exit code 1.
#pragma once

#include <filesystem>
#include <functional>

#include <QString>
#include <QStringList>
#include <QWidget>

namespace evening {

class Stage {
  public:
    explicit Stage(std::filesystem::path out) : m_out(std::move(out)) {}

    /// The visible window of a name; waits for it.
    QWidget& window(const QString& name);
    QWidget& control(const QString& window, const QString& name);

    void click(const QString& window, const QString& control, Qt::MouseButton button = Qt::LeftButton);
    void type(const QString& window, const QString& control, const QString& text);
    /// Opens the menus of a main window one after the other and clicks the last entry.
    void menu(const QString& window, const QStringList& names);
    void doubleClickCell(const QString& window, const QString& grid, int row, int column);

    /// Does `first`, which opens the modal window `name`, and plays `then` while that stands. The window has to be
    /// closed by `then`.
    void modal(const QString& name, const std::function<void()>& first, const std::function<void()>& then);
    /// The same for an input box, a message box and the file dialog.
    void answerInput(const QString& text, const std::function<void()>& first);
    void answerMessage(const std::function<void()>& first, const std::function<void()>& then = {});
    void chooseFile(const std::filesystem::path& file, const std::function<void()>& first);

    /// A line on the terminal and a picture of the screen.
    void show(const QString& picture, const QString& line);
    void say(const QString& line) const;
    [[noreturn]] void fail(const QString& reason) const;

    const std::filesystem::path& out() const { return m_out; }

  private:
    std::filesystem::path m_out;
    int m_pictures = 0;
};

} // namespace evening
