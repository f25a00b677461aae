// The scripted evening's view of the windows: clicks that leave time to paint, and pictures of the screen. Clicks,
// keys and dialogs are those of the window tests (tests/support). Whatever a user could not have done, and a dialog
// that no step awaits, ends the evening at once with a message and exit code 1.
#pragma once

#include <filesystem>

#include <QString>
#include <QStringList>

namespace evening {

class Stage {
  public:
    explicit Stage(std::filesystem::path out) : m_out(std::move(out)) {}

    void click(const QString& window, const QString& control);
    void type(const QString& window, const QString& control, const QString& text);
    /// Opens the menus of a main window one after the other and clicks the last entry.
    void menu(const QString& window, const QStringList& names);
    void doubleClickCell(const QString& window, const QString& grid, int row, int column);

    /// A line on the terminal and a picture of the screen.
    void show(const QString& picture, const QString& line);
    void say(const QString& line) const;

    const std::filesystem::path& out() const { return m_out; }

  private:
    std::filesystem::path m_out;
    int m_pictures = 0;
};

} // namespace evening
