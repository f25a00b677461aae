#include "workspace/templates.h"

#include <fstream>

#include "workspace/failure.h"
#include "workspace/filter_columns.h"
#include "workspace/rule.h"
#include "workspace/safe_file.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr const char* kShareColumns = "[Number] short,[gailv] double,[Glnum] short";

// The full record of a draw: its numbers, then its derived values in the order in which they are stored.
constexpr const char* kFigColumns =
    "[Idx] short,[fig0] integer,[fig1] integer,[fig2] integer,[fig3] integer,[fig4] integer,[fig5] integer,[fig6] "
    "integer,[fig7] integer,[Znum] short,[ZnumB] short,[Jnum] short,[Onum] short,[JnumB] short,[OnumB] short,[Zjnum] "
    "short,[Zonum] short,[Zgnum] short,[Zynum] short,[Sumjonum] Bit,[SumjonumB] Bit,[Sumgwnum] short,[SumgwnumB] "
    "short,[Bignum] short,[Smlnum] short,[Ltlnum] short,[Mornum] short,[XZnumB] short,[DZnumB] short,[LtlnumB] "
    "short,[MornumB] short,[Modenum] short,[ModenumB] short,[Cnum] short,[CnumB] short,[Lnum] short,[Lxnum] "
    "short,[Mxzounum] short,[Apzounum] short,[Fcodp] short,[Qnum0] short,[Qnum1] short,[Qnum2] short,[Qnum3] "
    "short,[intYljz] short";

std::string create(const std::string& table, const std::string& columns) {
    return "CREATE TABLE [" + table + "](" + columns + ")";
}

/// "[first] type,[stem1] short,…,[stem{count}] short"
std::string numbered(const std::string& first, const char* stem, int count) {
    std::string columns = first;
    for (int number = 1; number <= count; ++number)
        columns += std::string(",[") + stem + std::to_string(number) + "] short";
    return columns;
}

/// A table of shares with a record for every number, all of them 0.
void addShares(sql::Database& database, const char* table, int numbers) {
    database.execute(create(table, kShareColumns));
    for (int number = 1; number <= numbers; ++number)
        database.execute("INSERT INTO [" + std::string(table) + "] ([Number],[gailv],[Glnum]) VALUES (" +
                         std::to_string(number) + ",0,0)");
}

void addFilterTables(sql::Database& database, FilterFamily family) {
    database.execute(create("Canshu", canshuColumns(family)));
    database.execute(create("moban", mobanColumns(family)));
}

void fillLishihaoma(sql::Database& database) {
    database.execute(create("fig", kFigColumns));
    addShares(database, "Gailv", kMostReds);
    addShares(database, "GailvB", kMostBlues);
    addShares(database, "Gailvtmp", kMostReds);
    addShares(database, "GailvtmpB", kMostBlues);
    database.execute(create("Ylqs", numbered("[Qihao] long", "ylqs", kMostReds)));
    database.execute(create("YlqsB", numbered("[Qihao] long", "ylqs", kMostBlues)));
    database.execute("CREATE TABLE [CsGailvtmp]([Number] integer,[gailv] integer)");
}

void fillFilnum(sql::Database& database) {
    database.execute(kCreateBareFig);
    for (const char* table : {"zuhe", "zuheRote", "zuheRead", "zuheReadR", "zuheMoban", "zuhef"})
        database.execute(createCombinationTable(table));
    addFilterTables(database, FilterFamily::SixAndBlue);
    database.execute("CREATE TABLE [Xhmb]([Idx] integer,[cmd] integer,[nmb] integer)");
}

void fillFilnumR(sql::Database& database) {
    for (const char* table : {"zuheR", "zuheRoteR", "zuheReadR", "zuheMobanR"})
        database.execute(createCombinationTable(table));
    addFilterTables(database, FilterFamily::SixRed);
}

void fillNumsave(sql::Database& database) {
    for (const char* table : {"SAVE", "SAVEB", "SAVEdan"})
        database.execute(create(table, numbered("[Name] string,[BitR] integer,[Idx] integer", "f", kMostReds)));
}

void fillGailv(sql::Database& database) {
    addShares(database, "Gailv", kMostReds);
    addShares(database, "GailvB", kMostBlues);
}

struct Filling {
    const char* templateName;
    void (*fill)(sql::Database&);
};

constexpr Filling kFillings[] = {
    {"Lishihaoma.mdb", fillLishihaoma}, {"filnum.mdb", fillFilnum}, {"filnumR.mdb", fillFilnumR},
    {"numsave.mdb", fillNumsave},       {"Gailv.mdb", fillGailv},
};

void makeTemplate(sql::Engine& engine, const std::filesystem::path& file, const Filling& filling) {
    const std::filesystem::path unfinished = std::filesystem::path(file) += ".new";
    {
        const std::unique_ptr<sql::Database> database = engine.create(unfinished);
        sql::Transaction all(*database);
        filling.fill(*database);
        all.commit();
        database->store();
    } // closed: nothing of it is in memory when it gets its name
    if (!renameDurably(unfinished, file))
        throw Failure(u"不能写入模板文件 "_s + toQString(file));
}

/// Whether a file begins as a database does; an empty one does not.
bool isDatabase(const std::filesystem::path& file) {
    constexpr std::string_view kHead = "SQLite format 3";
    std::string head(kHead.size(), ' ');
    std::error_code unknown;
    return std::filesystem::is_regular_file(file, unknown) &&
           std::ifstream(file, std::ios::binary).read(head.data(), static_cast<std::streamsize>(head.size())) &&
           head == kHead;
}

} // namespace

void makeMissingTemplates(sql::Engine& engine, const std::filesystem::path& folder) {
    for (const Filling& filling : kFillings)
        if (const std::filesystem::path file = folder / filling.templateName; !isDatabase(file))
            makeTemplate(engine, file, filling);
}

} // namespace workspace
