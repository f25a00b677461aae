#include "workspace/settings.h"

#include <cmath>

#include <QFile>
#include <QLockFile>
#include <QStandardPaths>
#include <QStringList>

#include "base/number_text.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr int kLockWaitMs = 2000; // a write takes some milliseconds; then it goes on without the lock
constexpr int kParts = 4;

/// Whether the character at `place` is half of a pair whose other half is missing: UTF-8 has no bytes for it.
bool isLoneSurrogate(const QString& text, qsizetype place) {
    const QChar c = text[place];
    if (c.isHighSurrogate())
        return place + 1 == text.size() || !text[place + 1].isLowSurrogate();
    return c.isLowSurrogate() && (place == 0 || !text[place - 1].isHighSurrogate());
}

QString escaped(const QString& text) {
    QString line;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const QChar c = text[place];
        if (c == u'\\')
            line += u"\\\\"_s;
        else if (c == u'\t')
            line += u"\\t"_s;
        else if (c == u'\n')
            line += u"\\n"_s;
        else if (c == u'\r')
            line += u"\\r"_s;
        else if (c.unicode() < 0x20 || isLoneSurrogate(text, place))
            line += u"\\u%1"_s.arg(c.unicode(), 4, 16, QChar(u'0'));
        else
            line += c;
    }
    return line;
}

QString unescaped(const QString& line) {
    QString text;
    for (qsizetype place = 0; place < line.size(); ++place) {
        if (line[place] != u'\\' || place + 1 == line.size()) {
            text += line[place];
            continue;
        }
        const QChar code = line[++place];
        if (code == u'u') {
            text += QChar(QStringView(line).mid(place + 1, 4).toUShort(nullptr, 16));
            place += 4;
        } else {
            text += code == u't' ? u'\t' : code == u'n' ? u'\n' : code == u'r' ? u'\r' : code;
        }
    }
    return text;
}

} // namespace

ConversionError::ConversionError(const QString& text)
    : std::runtime_error("not a number: " + text.toStdString()), m_text(text) {}

int toNumber(const QString& text) {
    bool whole = false;
    const double number = text.trimmed().toDouble(&whole);
    const double rounded = base::roundHalfEven(number);
    if (!whole || !std::isfinite(number) || rounded < -32768 || rounded > 32767)
        throw ConversionError(text);
    return static_cast<int>(rounded);
}

Settings::Settings(std::filesystem::path folder) : m_folder(std::move(folder)) {
    read();
}

std::filesystem::path Settings::defaultFolder() {
    return toPath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)) / "ssqdesk";
}

std::filesystem::path Settings::file() const {
    return m_folder / "settings";
}

QString Settings::value(const QString& application, const QString& section, const QString& key,
                        const QString& defaultText) const {
    const auto found = m_values.find(Name(application, section, key));
    return found == m_values.end() ? defaultText : found->second;
}

int Settings::number(const QString& application, const QString& section, const QString& key,
                     const QString& defaultText) const {
    return toNumber(value(application, section, key, defaultText));
}

bool Settings::set(const QString& application, const QString& section, const QString& key, const QString& text) {
    std::error_code ignored; // a folder that cannot be made shows when the file is written
    std::filesystem::create_directories(m_folder, ignored);
    QLockFile lock(toQString(m_folder / "settings.lock"));
    lock.tryLock(kLockWaitMs);
    const bool known = read(); // a file that is there but cannot be read must not be replaced by less
    m_unwritten[Name(application, section, key)] = text;
    for (const auto& [name, value] : m_unwritten)
        m_values[name] = value;
    if (!known || !writeWholeFile(file(), print(m_values)))
        return false;
    m_unwritten.clear();
    return true;
}

bool Settings::set(const QString& application, const QString& section, const QString& key, int number) {
    return set(application, section, key, QString::number(number));
}

bool Settings::read() {
    QFile in(toQString(file()));
    if (!in.exists())
        return true;
    if (!in.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = in.readAll();
    if (bytes.size() != in.size())
        return false;
    m_values = parse(bytes);
    return true;
}

Settings::Values Settings::parse(const QByteArray& bytes) {
    Values values;
    for (const QByteArray& line : bytes.split('\n')) {
        const QStringList parts = QString::fromUtf8(line).split(u'\t');
        if (parts.size() == kParts)
            values[Name(unescaped(parts[0]), unescaped(parts[1]), unescaped(parts[2]))] = unescaped(parts[3]);
    }
    return values;
}

QByteArray Settings::print(const Values& values) {
    QByteArray bytes;
    for (const auto& [name, text] : values) {
        const auto& [application, section, key] = name;
        const QStringList parts{escaped(application), escaped(section), escaped(key), escaped(text)};
        bytes += parts.join(u'\t').toUtf8() + '\n';
    }
    return bytes;
}

} // namespace workspace
