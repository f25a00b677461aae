#include "workspace/templates.h"

#include <algorithm>
#include <fstream>
#include <set>

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "workspace/filter_columns.h"
#include "workspace/safe_file.h"

namespace {

class Templates : public ::testing::Test {
  protected:
    Templates() { workspace::makeMissingTemplates(engine, folder()); }
    std::filesystem::path folder() const { return workspace::toPath(dir.path()); }
    std::unique_ptr<sql::Database> open(const char* name) { return engine.open(folder() / name); }

    QTemporaryDir dir;
    sql::Engine engine;
};

TEST_F(Templates, AllFiveAreMadeAndNothingElseIsLeft) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder()))
        names.insert(entry.path().filename());
    EXPECT_EQ(names,
              (std::set<std::string>{"Lishihaoma.mdb", "filnum.mdb", "filnumR.mdb", "numsave.mdb", "Gailv.mdb"}));
}

TEST_F(Templates, OneThatIsEmptyOrNoDatabaseIsMadeAnew) {
    std::ofstream(folder() / "numsave.mdb", std::ios::trunc);
    std::ofstream(folder() / "filnum.mdb", std::ios::trunc) << "no database at all, but long enough";
    workspace::makeMissingTemplates(engine, folder());
    EXPECT_EQ(open("numsave.mdb")->rowCount("SAVE"), 0);
    EXPECT_EQ(open("filnum.mdb")->rowCount("fig"), 0);
}

TEST_F(Templates, SharesHaveARecordForEveryNumber) {
    const auto history = open("Lishihaoma.mdb");
    for (const auto& [table, numbers] :
         {std::pair("Gailv", 38), std::pair("GailvB", 18), std::pair("Gailvtmp", 38), std::pair("GailvtmpB", 18)}) {
        EXPECT_EQ(history->rowCount(table), numbers) << table;
        const std::string from = std::string(" FROM [") + table + "]";
        EXPECT_EQ(sql::toInteger(history->queryValue("SELECT SUM([Number])" + from)), numbers * (numbers + 1) / 2);
        EXPECT_EQ(sql::toInteger(history->queryValue("SELECT COUNT(*)" + from + " WHERE [gailv]=0 AND [Glnum]=0")),
                  numbers);
    }
    for (const char* table : {"fig", "Ylqs", "YlqsB", "CsGailvtmp"})
        EXPECT_EQ(history->rowCount(table), 0) << table;
    EXPECT_EQ(history->columnNames("Ylqs").size(), 39u);
    EXPECT_EQ(history->columnNames("YlqsB").back(), "ylqs18");
    EXPECT_EQ(open("Gailv.mdb")->rowCount("GailvB"), 18);
}

TEST_F(Templates, CombinationTablesAreThereAndEmptyButNotTheScratchOnes) {
    const auto filnum = open("filnum.mdb");
    for (const char* table : {"fig", "zuhe", "zuheRote", "zuheRead", "zuheReadR", "zuheMoban", "zuhef"})
        EXPECT_EQ(filnum->rowCount(table), 0) << table;
    const auto filnumR = open("filnumR.mdb");
    for (const char* table : {"zuheR", "zuheRoteR", "zuheReadR", "zuheMobanR"})
        EXPECT_EQ(filnumR->rowCount(table), 0) << table;
    for (const char* table : {"Tmp", "Lishi"}) {
        EXPECT_FALSE(filnum->hasTable(table)) << table;
        EXPECT_FALSE(filnumR->hasTable(table)) << table;
    }
    EXPECT_EQ(filnum->columnNames("zuhe").size(), 18u);
    EXPECT_EQ(filnumR->columnNames("zuheR").size(), 17u);
    EXPECT_EQ(filnum->columnNames("zuhef").size(), 15u);
}

TEST_F(Templates, SelectionsHoldUpTo38Numbers) {
    const auto numsave = open("numsave.mdb");
    for (const char* table : {"SAVE", "SAVEB", "SAVEdan"}) {
        EXPECT_EQ(numsave->columnNames(table).size(), 41u) << table;
        EXPECT_EQ(numsave->columnNames(table).back(), "f38");
    }
}

TEST_F(Templates, FilterSettingsTakeEveryColumnOfTheirFamily) {
    for (const char* file : {"filnum.mdb", "filnumR.mdb"}) {
        const auto database = open(file);
        for (const char* table : {"Canshu", "moban"}) {
            sql::Recordset records = database->openRecordset(table);
            records.addNew();
            for (const char* column : {"Ylc_1", "1to10_2", "Geweitong_0", "RCperct"})
                records.set(column, std::string("7"));
            for (const char* flag : {"1j", "7o", "opt36"})
                records.set(flag, std::int64_t{-1});
            records.update();
            records.moveFirst();
            EXPECT_EQ(sql::toText(records.field("1to10_2")), "7") << file << table;
            EXPECT_EQ(sql::toInteger(records.field("1j")), -1);
            EXPECT_EQ(sql::toInteger(records.field("2j")), 0);
        }
    }
    const auto has = [](const std::vector<std::string>& columns, const char* name) {
        return std::find(columns.begin(), columns.end(), name) != columns.end();
    };
    EXPECT_TRUE(has(open("filnum.mdb")->columnNames("Canshu"), "Tx2"));
    EXPECT_TRUE(has(open("filnumR.mdb")->columnNames("Canshu"), "qj4"));
    EXPECT_FALSE(has(open("filnumR.mdb")->columnNames("moban"), "Tx2"));
    EXPECT_TRUE(has(open("filnum.mdb")->columnNames("moban"), "chk30"));
    EXPECT_TRUE(has(open("filnum.mdb")->columnNames("moban"), "sk9"));
    EXPECT_FALSE(has(open("filnum.mdb")->columnNames("moban"), "Name"));
}

TEST_F(Templates, OneThatIsThereStaysAsItIs) {
    open("Lishihaoma.mdb")->execute("DROP TABLE [CsGailvtmp]");
    std::filesystem::remove(folder() / "filnum.mdb");
    workspace::makeMissingTemplates(engine, folder());
    EXPECT_FALSE(open("Lishihaoma.mdb")->hasTable("CsGailvtmp"));
    EXPECT_TRUE(open("filnum.mdb")->hasTable("Xhmb"));
}

TEST_F(Templates, HalfATemplateOfAKilledStartIsMadeAnew) {
    std::filesystem::remove(folder() / "filnum.mdb");
    std::ofstream(folder() / "filnum.mdb.new") << "half of a file";
    workspace::makeMissingTemplates(engine, folder());
    EXPECT_TRUE(open("filnum.mdb")->hasTable("Xhmb"));
    EXPECT_FALSE(std::filesystem::exists(folder() / "filnum.mdb.new"));
}

TEST(TemplatesFailing, AFolderThatIsNotThereIsAnError) {
    sql::Engine engine;
    EXPECT_THROW(workspace::makeMissingTemplates(engine, "/nowhere/at/all"), std::runtime_error);
}

} // namespace
