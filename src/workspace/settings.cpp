#include "workspace/settings.h"

#include <cmath>

#include <QCryptographicHash>
#include <QFile>
#include <QLockFile>
#include <QStandardPaths>
#include <QStringDecoder>
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

ConversionError::ConversionError(const QString& text, const QString& name)
    : std::runtime_error("not a number: " + text.toStdString()), m_message(u"类型不匹配: \"%1\""_s.arg(text)) {
    if (!name.isEmpty())
        m_message += u" (%1)"_s.arg(name);
}

int toNumber(const QString& text, const QString& name) {
    bool whole = false;
    const double number = text.trimmed().toDouble(&whole);
    const double rounded = base::roundHalfEven(number);
    if (!whole || !std::isfinite(number) || rounded < -32768 || rounded > 32767)
        throw ConversionError(text, name);
    return static_cast<int>(rounded);
}

Settings::Settings(std::filesystem::path folder) : m_folder(std::move(folder)) {
    if (!read())
        m_trouble = u"设置文件不能读取，本次运行中的设置不会保存。文件没有改动：%1"_s.arg(toQString(file()));
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
    return toNumber(value(application, section, key, defaultText), key);
}

std::vector<SettingChange> Settings::valuesOf(const QString& application) const {
    std::vector<SettingChange> values;
    for (const auto& [name, text] : m_values)
        if (std::get<0>(name) == application)
            values.push_back({application, std::get<1>(name), std::get<2>(name), text});
    return values;
}

void Settings::apply(const SettingChange& change) {
    const Name name(change.application, change.section, change.key);
    if (change.text)
        m_values[name] = *change.text;
    else
        m_values.erase(name);
}

bool Settings::write(const std::vector<SettingChange>& changes) {
    std::error_code ignored; // a folder that cannot be made shows when the file is written
    std::filesystem::create_directories(m_folder, ignored);
    QLockFile lock(toQString(m_folder / "settings.lock"));
    static_cast<void>(lock.tryLock(kLockWaitMs)); // then it goes on without
    const bool known = read(); // a file that is there but cannot be read must not be replaced by less
    m_unwritten.insert(m_unwritten.end(), changes.begin(), changes.end());
    for (const SettingChange& change : m_unwritten)
        apply(change);
    if (!known || !writeWholeFile(file(), print(m_values), Readers::OwnerOnly))
        return false;
    m_unwritten.clear();
    return true;
}

bool Settings::set(const QString& application, const QString& section, const QString& key, const QString& text) {
    return write({{application, section, key, text}});
}

bool Settings::set(const QString& application, const QString& section, const QString& key, int number) {
    return set(application, section, key, QString::number(number));
}

/// \return whether all values of the file are known; a missing file has none
bool Settings::read() {
    std::error_code unknown;
    const std::filesystem::file_status status = std::filesystem::status(file(), unknown);
    if (status.type() == std::filesystem::file_type::not_found)
        return true;
    QFile in(toQString(file()));
    if (!std::filesystem::is_regular_file(status) || !in.open(QIODevice::ReadOnly)) // a pipe would never end
        return false;
    const QByteArray bytes = in.readAll();
    if (bytes.size() != in.size())
        return false;
    Parsed parsed = parse(bytes);
    if (parsed.damagedLines > 0)
        keepDamaged(parsed.damagedLines);
    m_values = std::move(parsed.values);
    return true;
}

/// Before the next write replaces it by what could be read. The same damage is kept once, however often it is read.
void Settings::keepDamaged(int lines) {
    QFile damaged(toQString(file()));
    if (!damaged.open(QIODevice::ReadOnly))
        return;
    const QByteArray sum = QCryptographicHash::hash(damaged.readAll(), QCryptographicHash::Sha1).toHex().left(12);
    const std::filesystem::path kept = m_folder / ("settings.damaged-" + sum.toStdString());
    std::error_code ignored;
    const bool whole = std::filesystem::exists(kept, ignored) || copyWholeFile(file(), kept);
    m_trouble = u"设置文件有 %1 行损坏，其余设置都已保留。"_s.arg(lines) +
                (whole ? u"损坏的文件保存在 %1"_s.arg(toQString(kept)) : u"损坏的文件未能另存"_s);
}

Settings::Parsed Settings::parse(const QByteArray& bytes) {
    Parsed parsed;
    for (const QByteArray& line : bytes.split('\n')) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString text = decoder(line);
        const QStringList parts = text.split(u'\t');
        const bool sound = parts.size() == kParts && !decoder.hasError();
        if (sound)
            parsed.values[Name(unescaped(parts[0]), unescaped(parts[1]), unescaped(parts[2]))] = unescaped(parts[3]);
        else if (!line.isEmpty())
            ++parsed.damagedLines;
    }
    return parsed;
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
