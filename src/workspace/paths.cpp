#include "workspace/paths.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr qsizetype kLongestName = 160;   // bytes
constexpr qsizetype kKeptOfLongName = 96; // bytes before the mark and the checksum

// Names in the program's folder, or in a user's folder, that belong to something else.
constexpr QStringView kTakenNames[] = {
    u"Lishihaoma.mdb", u"filnum.mdb",  u"filnumR.mdb",  u"numsave.mdb", u"Gailv.mdb",
    u"filnum",         u"filnumR",     u"numsave",      u"Gailv",       u"双色历史号码",
    u"ssqdesk",        u"Xuanzhuanjb", u"XuanzhuanF6",  u"Xuanzhuancj", u"XuanzhuanDT",
    u"xuanzhuanF7",    u"data",        u"TIPOFDAY.TXT", u"Newuser.TXT",
};

bool isTaken(const QString& user) {
    for (const QStringView name : kTakenNames)
        if (user == name)
            return true;
    return false;
}

/// One character of a name as it stands in the folder name.
QString codedCharacter(const QString& user, qsizetype place) {
    const QChar c = user[place];
    const bool first = place == 0;
    const bool mark = c == u'/' || c == u'\\' || c == u'%' || c.unicode() < 0x20 || c.unicode() == 0x7f;
    if (mark || (first && (c == u'.' || (isTaken(user) && c.unicode() < 0x80))))
        return u"%%1"_s.arg(c.unicode(), 2, 16, QChar(u'0')).toUpper();
    const bool pairedHigh = c.isHighSurrogate() && place + 1 < user.size() && user[place + 1].isLowSurrogate();
    const bool pairedLow = c.isLowSurrogate() && place > 0 && user[place - 1].isHighSurrogate();
    const bool lone = c.isSurrogate() && !pairedHigh && !pairedLow;
    if (lone || (first && isTaken(user)))
        return u"%u"_s + u"%1"_s.arg(c.unicode(), 4, 16, QChar(u'0')).toUpper();
    return c;
}

/// The longest start of a name that fits, without half a character or half a code at its end.
QString startOf(const QString& name, qsizetype bytes) {
    QString start;
    qsizetype used = 0;
    for (qsizetype place = 0; place < name.size();) {
        qsizetype length = name[place].isHighSurrogate() ? 2 : 1;
        if (name[place] == u'%') // %2F or %uD800
            length = name.mid(place + 1, 1) == u"u"_s ? 6 : 3;
        const QString piece = name.mid(place, length);
        used += piece.toUtf8().size();
        if (used > bytes)
            break;
        start += piece;
        place += length;
    }
    return start;
}

} // namespace

std::filesystem::path programFolder() {
    const QString home = qEnvironmentVariable("SSQDESK_HOME");
    QString folder = home.isEmpty() ? QCoreApplication::applicationDirPath() : home;
    if (home.isEmpty() && !QFileInfo(folder).isWritable())
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/ssqdesk"_s;
    std::error_code ignored; // shows when the templates are made
    const std::filesystem::path path = toPath(folder);
    std::filesystem::create_directories(path, ignored);
    return path;
}

QString folderName(const QString& user) {
    if (user.isEmpty())
        return u"%"_s;
    QString name;
    for (qsizetype place = 0; place < user.size(); ++place)
        name += codedCharacter(user, place);
    if (name.toUtf8().size() <= kLongestName)
        return name;
    const QByteArray sum = QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha1).toHex();
    return startOf(name, kKeptOfLongName) + u"%~"_s + QString::fromLatin1(sum);
}

std::optional<QString> userOfFolder(const QString& folder) {
    if (folder == u"%"_s)
        return QString();
    QString user;
    for (qsizetype place = 0; place < folder.size(); ++place) {
        if (folder[place] != u'%') {
            user += folder[place];
            continue;
        }
        const bool wide = folder.mid(place + 1, 1) == u"u"_s;
        const qsizetype digits = wide ? 4 : 2;
        place += wide ? 2 : 1;
        bool whole = false;
        user += QChar(folder.mid(place, digits).toUShort(&whole, 16));
        if (!whole)
            return std::nullopt;
        place += digits - 1;
    }
    return folderName(user) == folder ? std::optional(user) : std::nullopt;
}

std::filesystem::path underFolder(const std::filesystem::path& folder, const QString& fragment) {
    std::filesystem::path path = folder;
    for (const QString& part : fragment.split(u'\\', Qt::SkipEmptyParts))
        path /= toPath(part);
    return path;
}

std::filesystem::path userFolder(const std::filesystem::path& folder, const QString& user) {
    return folder / toPath(folderName(user));
}

QString userFileFragment(const QString& user, const QString& file) {
    return u"\\"_s + folderName(user) + u"\\"_s + file;
}

QString userDbFragment(const QString& user) {
    return userFileFragment(user, folderName(user) + u".mdb"_s);
}
QString userDbFragmentR(const QString& user) {
    return userFileFragment(user, folderName(user) + u"R.mdb"_s);
}

QString historyTextFragment(const QString& user) {
    return u"\\双色历史号码\\"_s + folderName(user) + u" 双色号码.TXT"_s;
}

} // namespace workspace
