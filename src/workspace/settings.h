// The settings store: text under an application, a section and a key, in one file of the user's configuration folder.
//
// A value is written at once: set() reads the file again under a lock, changes the one value and puts a whole new
// file in place, so that two programs over one file lose nothing of each other, and a power cut nothing at all.
// Reading takes the values as they stood at the last set() or at the start. A line of the file is one value, its four
// parts between tabs, with \t \n \r \\ and \uXXXX for what a line cannot hold; so any text survives. A damaged line
// is skipped. Cost: a set() writes the file, some ten kilobytes.
#pragma once

#include <filesystem>
#include <map>
#include <stdexcept>
#include <tuple>

#include <QString>

namespace workspace {

/// A setting that is due as a number holds something else.
class ConversionError : public std::runtime_error {
  public:
    explicit ConversionError(const QString& text);
    const QString& text() const { return m_text; }

  private:
    QString m_text;
};

/// A text as a 16-bit number: blanks around it are passed over, a half goes to the even side.
/// \throws ConversionError for anything that is not wholly a number of -32768..32767, the empty text too
int toNumber(const QString& text);

class Settings {
  public:
    /// \param folder  holds the file; made at the first set(). Default: ssqdesk in the user's configuration folder
    explicit Settings(std::filesystem::path folder = defaultFolder());

    /// $XDG_CONFIG_HOME/ssqdesk, or ~/.config/ssqdesk.
    static std::filesystem::path defaultFolder();

    QString value(const QString& application, const QString& section, const QString& key,
                  const QString& defaultText = {}) const;
    /// \throws ConversionError when the text that is there, or the default, is not a number
    int number(const QString& application, const QString& section, const QString& key,
               const QString& defaultText) const;

    /// \return false when the file could not be written; the value then holds until the process ends
    bool set(const QString& application, const QString& section, const QString& key, const QString& text);
    bool set(const QString& application, const QString& section, const QString& key, int number);

    std::filesystem::path file() const;

  private:
    using Name = std::tuple<QString, QString, QString>;
    using Values = std::map<Name, QString>;

    static Values parse(const QByteArray& bytes);
    static QByteArray print(const Values& values);
    bool read();

    std::filesystem::path m_folder;
    Values m_values;
    Values m_unwritten; ///< set while the file could not be written; they go with the next write
};

} // namespace workspace
