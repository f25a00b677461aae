// The settings store: text under an application, a section and a key, in one file of the user's configuration folder.
//
// A value is written at once: write() reads the file again under a lock, makes its changes and puts a whole new file
// in place, so that two programs over one file lose nothing of each other, and a power cut nothing at all: what one
// call changes is there wholly or not at all. Only the file's owner may read it: passwords stand in it.
// Reading takes the values as they stood at the last write() or at the start. A line of the file is one value, its
// four parts between tabs, with \t \n \r \\ and \uXXXX for what a line cannot hold; so any text survives. Of a
// damaged file what can be read is kept, and the file itself beside it; trouble() says so. Cost: a write() writes the
// file, some ten kilobytes.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <vector>

#include <QString>

namespace workspace {

/// A setting that is due as a number holds something else.
class ConversionError : public std::runtime_error {
  public:
    /// \param name  the setting's key, empty for a text that is no setting
    explicit ConversionError(const QString& text, const QString& name = {});
    /// What the user reads: 类型不匹配: "many" (Usernum)
    const QString& message() const { return m_message; }

  private:
    QString m_message;
};

/// A text as a 16-bit number: blanks around it are passed over, a half goes to the even side.
/// \throws ConversionError for anything that is not wholly a number of -32768..32767, the empty text too
int toNumber(const QString& text, const QString& name = {});

/// A value that is written, or, without a text, taken away.
struct SettingChange {
    QString application;
    QString section;
    QString key;
    std::optional<QString> text;
};

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

    /// All values under an application, as changes that would write them.
    std::vector<SettingChange> valuesOf(const QString& application) const;

    /// All changes in one step. \return false when the file could not be written; the values then hold until the
    /// process ends, and go with the next write
    bool write(const std::vector<SettingChange>& changes);
    bool set(const QString& application, const QString& section, const QString& key, const QString& text);
    bool set(const QString& application, const QString& section, const QString& key, int number);

    std::filesystem::path file() const;

    /// What was wrong with the file at the start, as a sentence for the user; empty when it was sound.
    const QString& trouble() const { return m_trouble; }

  private:
    using Name = std::tuple<QString, QString, QString>;
    using Values = std::map<Name, QString>;

    struct Parsed {
        Values values;
        int damagedLines = 0;
    };

    static Parsed parse(const QByteArray& bytes);
    static QByteArray print(const Values& values);
    bool read();
    void keepDamaged(int lines);
    void apply(const SettingChange& change);

    std::filesystem::path m_folder;
    Values m_values;
    std::vector<SettingChange> m_unwritten; ///< made while the file could not be written; they go with the next write
    QString m_trouble;
};

} // namespace workspace
