// The hands and eyes of the scripted evening: real mouse and key events on controls that are found by name, and
// pictures of the screen. Whatever a user could not have done ends the evening with a message and exit code 1.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

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

    /// One modal window that is expected, and what is done while it stands; `act` has to close it.
    struct Step {
        QString name;
        std::function<void(QWidget&)> act;
    };
    /// Does `first`, which opens modal windows one after the other, and plays the steps in their order.
    void script(const std::function<void()>& first, std::vector<Step> steps);
    static Step answerInput(const QString& text);
    static Step pressOk();
    static Step chooseFile(const std::filesystem::path& file);

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
