#include "crash/contents.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

#include <QFile>

#include "history/default_text.h"
#include "history/store.h"
#include "history/text_file.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/setting_names.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

namespace crash {

namespace {

constexpr std::int64_t kRowStep = 199; // every row of a small table, some hundred of a large one

/// FNV-1a
class Checksum {
  public:
    void add(const std::string& bytes) {
        for (const char byte : bytes + '|')
            m_sum = (m_sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3ULL;
    }
    std::string text() const { return std::to_string(m_sum); }

  private:
    std::uint64_t m_sum = 0xCBF29CE484222325ULL;
};

void readUser(const std::filesystem::path& folder, const workspace::Settings& settings, const QString& user,
              FoundFolder& found) {
    sql::Engine engine;
    workspace::Workspace opened = workspace::enterUser(settings, folder, user);
    const workspace::OpenResult result = workspace::openWorkspace(engine, opened);
    if (!result.opened)
        throw std::runtime_error("the workspace of " + user.toStdString() + " does not open");
    if (result.repaired)
        found.repaired.insert(user.toStdString());
    history::History history;
    history::loadHistory(history, opened);
    for (const char* table : {"fig", "Ylqs"})
        if (opened.dbUser->rowCount(table) != history.Lsnum)
            throw std::runtime_error(std::string(table) + " of " + user.toStdString() + " has another length");
    found.contents[keyOf("draws", user)] = drawsText(history::drawsOf(history), opened.dbUser->rowCount("YlqsB"));
    found.contents.merge(tablesOf(*opened.dbFilnum, user));
    found.contents[keyOf("text", user)] = textFileText(opened);
    found.contents.merge(settingsOf(settings, user));
}

/// A name without files belongs to nobody any more, unless the list has it.
bool hasFiles(const std::filesystem::path& folder, const QString& user) {
    return std::filesystem::exists(workspace::underFolder(folder, workspace::userDbFragment(user)));
}

std::string integrityOf(const std::filesystem::path& file) {
    sqlite3* database = nullptr;
    const int opened = sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> closing(database, sqlite3_close);
    if (opened != SQLITE_OK)
        return sqlite3_errmsg(database);
    sqlite3_stmt* check = nullptr;
    sqlite3_prepare_v2(database, "PRAGMA integrity_check", -1, &check, nullptr);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> finalizing(check, sqlite3_finalize);
    if (sqlite3_step(check) != SQLITE_ROW)
        return sqlite3_errmsg(database);
    return reinterpret_cast<const char*>(sqlite3_column_text(check, 0));
}

} // namespace

std::string tableChecksum(sql::Database& dbFilnum, const std::string& table) {
    Checksum sum;
    const sql::Rows sums = dbFilnum.query(
        "SELECT Count(*), SUM([idx]), SUM([fig1]), SUM([fig6]), SUM([fig7]), SUM([canshu]), SUM([unslt]), "
        "SUM([preunslt]), SUM([tmpunslt]), SUM([Errnum]), Min([Fliter]), Max([Fliter]), Count([Fliter]) FROM [" +
        table + "]");
    for (int column = 0; column < sums.columnCount(); ++column)
        sum.add(sums.textAt(0, column));
    const sql::Rows rows = dbFilnum.query("SELECT * FROM [" + table + "]");
    const std::int64_t step = rows.count() <= kRowStep ? 1 : kRowStep;
    for (std::int64_t row = 0; row < rows.count(); row += step)
        for (int column = 0; column < rows.columnCount(); ++column)
            sum.add(rows.textAt(row, column));
    return sum.text();
}

std::string tableText(sql::Database& dbFilnum, const std::string& table) {
    if (!dbFilnum.hasTable(table))
        return "none";
    const sql::Value left = dbFilnum.queryValue("SELECT Count(*) FROM [" + table + "] WHERE [unslt]=false");
    return std::to_string(dbFilnum.rowCount(table)) + '/' + std::to_string(sql::toInteger(left)) + '/' +
           tableChecksum(dbFilnum, table);
}

Texts tablesOf(sql::Database& dbFilnum, const QString& user) {
    Texts texts;
    for (const ToldTable& told : kToldTables)
        texts[keyOf(told.key, user)] = tableText(dbFilnum, told.table);
    return texts;
}

std::string drawsText(std::span<const history::Draw> draws, std::int64_t blueOmissions) {
    Checksum sum;
    for (const history::Draw& draw : draws)
        for (const std::int32_t number : draw)
            sum.add(std::to_string(number));
    return std::to_string(draws.size()) + '/' + std::to_string(draws.empty() ? 0 : draws.back()[0]) + '/' +
           sum.text() + '/' + std::to_string(blueOmissions);
}

std::string usersText(std::span<const workspace::UserList::User> users) {
    std::string all;
    for (const auto& user : users)
        all += user.name.toStdString() + ':' + user.password.toStdString() + '|';
    return all;
}

std::string keyOf(const char* what, const QString& user) {
    return what + ('/' + user.toStdString());
}

FoundFolder readFolder(const std::filesystem::path& folder, const std::filesystem::path& settingsFolder,
                       const std::set<std::string>& names) {
    FoundFolder found;
    workspace::Settings settings(settingsFolder);
    const workspace::UserList users(settings);
    std::set<std::string> all;
    for (const std::string& name : names)
        if (hasFiles(folder, QString::fromStdString(name)))
            all.insert(name);
    for (const auto& user : users.users())
        if (!found.listed.insert(user.name.toStdString()).second)
            throw std::runtime_error("two users bear the name " + user.name.toStdString());
    all.insert(found.listed.begin(), found.listed.end());
    found.contents["users"] = usersText(users.users());
    if (users.lastEntered() >= 0)
        found.contents["entered"] = users.users()[static_cast<std::size_t>(users.lastEntered())].name.toStdString();
    for (const std::string& name : all)
        readUser(folder, settings, QString::fromStdString(name), found);
    return found;
}

std::string textFileText(const workspace::Workspace& workspace) {
    QFile file(workspace::toQString(history::historyTextFile(workspace)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    Checksum sum;
    sum.add(file.readAll().toStdString());
    return sum.text();
}

Texts settingsOf(const workspace::Settings& settings, const QString& user) {
    const QString application = workspace::setting::ofUser(user);
    const auto value = [&](const QString& section, const QString& key, const QString& otherwise) {
        return settings.value(application, section, key, otherwise).toStdString();
    };
    return {{keyOf("rule", user),
             value(u"Initial"_s, u"Bitnum"_s, u"33"_s) + '/' + value(u"Initial"_s, u"BitnumB"_s, u"16"_s)},
            {keyOf("Wd", user), value(u"Initial"_s, u"Wd"_s, u"100"_s)},
            {keyOf("dayin", user), value(u"setup"_s, u"dayin"_s, u"5"_s)}};
}

void checkIntegrity(const std::filesystem::path& folder) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".mdb")
            continue;
        if (const std::string result = integrityOf(entry.path()); result != "ok")
            throw std::runtime_error(entry.path().string() + ": " + result);
    }
}

} // namespace crash
