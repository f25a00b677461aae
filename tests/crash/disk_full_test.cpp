// No room: a size limit on files, and a disk that is really full. What was committed stays, what failed says so, and
// when there is room again the same handle stores all that was pending.
#include <sys/mount.h>
#include <sys/resource.h>

#include <csignal>
#include <fstream>
#include <memory>
#include <numeric>

#include <gtest/gtest.h>

#include "crash/work.h"
#include "history/store.h"
#include "scratch_folder.h"
#include "selection/bet_source.h"
#include "workspace/setting_names.h"
#include "workspace/templates.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

namespace {

/// A folder where room can be taken away and given back.
class Place {
  public:
    virtual ~Place() = default;
    virtual std::filesystem::path folder() const = 0;
    virtual void takeRoom() = 0;
    virtual void giveRoom() = 0;
    /// Why this place cannot be had here; empty when it can.
    virtual std::string missing() const { return {}; }
};

/// Files may not grow beyond what the largest of the folder has; a write beyond gives EFBIG.
class LimitedFiles final : public Place {
  public:
    LimitedFiles() : m_handler(std::signal(SIGXFSZ, SIG_IGN)) { getrlimit(RLIMIT_FSIZE, &m_old); }
    ~LimitedFiles() override {
        giveRoom();
        std::signal(SIGXFSZ, m_handler);
    }
    std::filesystem::path folder() const override { return m_folder.path(); }
    void takeRoom() override {
        std::uintmax_t largest = 1;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.path()))
            if (entry.is_regular_file())
                largest = std::max(largest, entry.file_size());
        const rlimit limit{largest, m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    void giveRoom() override { setrlimit(RLIMIT_FSIZE, &m_old); }

  private:
    ScratchFolder m_folder;
    rlimit m_old{};
    void (*m_handler)(int);
};

/// A file system of 16 MiB in memory; a file takes all that is free.
class SmallDisk final : public Place {
  public:
    SmallDisk() { m_mounted = ::mount("tmpfs", m_folder.path().c_str(), "tmpfs", 0, "size=16m") == 0; }
    ~SmallDisk() override {
        if (m_mounted)
            ::umount2(m_folder.path().c_str(), MNT_DETACH);
    }
    std::filesystem::path folder() const override { return m_folder.path(); }
    std::string missing() const override { return m_mounted ? "" : "no right to mount a small disk here"; }
    void takeRoom() override {
        std::ofstream filler(file(), std::ios::binary);
        const std::string block(4096, 'x');
        while (filler.write(block.data(), static_cast<std::streamsize>(block.size())).flush()) {
        }
    }
    void giveRoom() override { std::filesystem::remove(file()); }

  private:
    std::filesystem::path file() const { return m_folder.path() / "filler"; }

    ScratchFolder m_folder;
    bool m_mounted = false;
};

template <class Action> int errorOf(Action action, std::string* message = nullptr) {
    try {
        action();
        return 0;
    } catch (const sql::SqlError& error) {
        if (message)
            *message = error.what();
        return error.number();
    }
}

struct PlaceKind {
    const char* name;
    std::unique_ptr<Place> (*make)();
    friend void PrintTo(const PlaceKind& kind, std::ostream* out) { *out << kind.name; }
};

class NoRoom : public ::testing::TestWithParam<PlaceKind> {
  protected:
    void SetUp() override {
        place = GetParam().make();
        if (const std::string missing = place->missing(); !missing.empty())
            GTEST_SKIP() << missing;
    }

    std::unique_ptr<Place> place;
    sql::Engine engine;
};

/// All values of a table, as another program over the same file reads them.
std::vector<std::string> everything(const std::filesystem::path& file, const std::string& table) {
    sql::Engine other;
    const auto db = other.open(file);
    const sql::Rows rows = db->query("SELECT * FROM [" + table + "]");
    std::vector<std::string> lines;
    for (std::int64_t row = 0; row < rows.count(); row += 7) {
        lines.emplace_back();
        for (int column = 0; column < rows.columnCount(); ++column)
            lines.back() += rows.textAt(row, column) + "|";
    }
    return lines;
}

/// A generated table with values that hardly compress.
void fill(sql::Database& db) {
    selection::GenerationInput input;
    input.Genreds = 18;
    input.chosen.reds.resize(18);
    std::iota(input.chosen.reds.begin(), input.chosen.reds.end(), 1);
    input.chosen.blues = {1, 2, 3};
    selection::Enumeration(input).fill(db, {"zuhe", 6, true, false}, nullptr);
}

void scatter(sql::Database& db, int seed) {
    const std::vector<std::string> inputs = {"idx"};
    db.computeColumn("zuhe", inputs, "canshu", [seed](auto columns, auto output) {
        for (std::size_t row = 0; row < output.size(); ++row)
            output[row] = static_cast<std::int32_t>(static_cast<std::uint32_t>(columns[0][row] + seed) * 2654435761U);
    });
    db.execute("UPDATE [zuhe] SET [Fliter]=\"值\" & [canshu]");
}

TEST_P(NoRoom, AStoreThatFailsLeavesTheFileAndIsMadeUpLater) {
    const auto file = place->folder() / "a.mdb";
    const auto db = engine.create(file);
    fill(*db);
    db->store();
    const auto stored = everything(file, "zuhe");
    scatter(*db, 1);
    db->execute("CREATE TABLE [zuheR]([idx] integer)");
    db->execute("INSERT INTO [zuheR] ([idx]) VALUES (7)");
    place->takeRoom();
    std::string message;
    EXPECT_EQ(errorOf([&] { db->store(); }, &message), sql::error::kDiskFull) << message;
    EXPECT_NE(message.find("磁盘空间不足"), std::string::npos) << message;
    EXPECT_EQ(errorOf([&] { db->store(); }), sql::error::kDiskFull);
    EXPECT_TRUE(db->storePending());
    EXPECT_EQ(everything(file, "zuhe"), stored);
    db->execute("UPDATE [zuhe] SET [unslt]=true WHERE [idx] mod 3 = 0"); // work goes on in memory
    place->giveRoom();
    db->store();
    EXPECT_FALSE(db->storePending());
    const auto later = everything(file, "zuhe");
    EXPECT_NE(later, stored);
    sql::Engine second; // all columns anew, without the handle that failed
    const auto fresh = second.create(place->folder() / "b.mdb");
    fill(*fresh);
    scatter(*fresh, 1);
    fresh->execute("UPDATE [zuhe] SET [unslt]=true WHERE [idx] mod 3 = 0");
    fresh->store();
    EXPECT_EQ(later, everything(place->folder() / "b.mdb", "zuhe"));
    EXPECT_EQ(everything(file, "zuheR"), std::vector<std::string>{"7|"});
}

/// A workspace with some draws.
class History : public NoRoom {
  protected:
    void SetUp() override {
        NoRoom::SetUp();
        if (IsSkipped())
            return;
        workspace::createUserFiles(engine, place->folder(), u"张三"_s);
        workspace = workspace::enterUser(workspace::Settings(place->folder()), place->folder(), u"张三"_s);
        ASSERT_TRUE(workspace::openWorkspace(engine, workspace).opened);
        history::storeBatch(history, workspace, draws(1, 200));
    }
    void TearDown() override {
        workspace = {};
        NoRoom::TearDown();
    }
    static std::vector<history::Draw> draws(int first, int count) {
        std::vector<history::Draw> result;
        for (int draw = first; draw < first + count; ++draw)
            result.push_back(crash::Work::drawOf(draw));
        return result;
    }
    void expectDraws(int count) {
        history::History loaded;
        history::loadHistory(loaded, workspace);
        EXPECT_EQ(loaded.Lsnum, count);
        EXPECT_EQ(history.Lsnum, count);
        EXPECT_EQ(loaded.Glred, history.Glred);
        for (const char* table : {"fig", "Ylqs", "YlqsB"})
            EXPECT_EQ(workspace.dbUser->rowCount(table), count) << table;
        EXPECT_EQ(sql::toInteger(workspace.dbUser->queryValue("SELECT SUM([Glnum]) FROM [Gailv]")), 6 * count);
    }

    workspace::Workspace workspace;
    history::History history;
};

TEST_P(History, KeepsTheDrawsThatAreThereAndTakesTheNewOnesLater) {
    place->takeRoom();
    EXPECT_EQ(errorOf([&] { history::storeBatch(history, workspace, draws(201, 3000)); }), sql::error::kDiskFull);
    expectDraws(200);
    EXPECT_EQ(errorOf([&] { history::replaceHistory(history, workspace, draws(10001, 3000)); }),
              sql::error::kDiskFull);
    expectDraws(200);
    place->giveRoom();
    history::storeBatch(history, workspace, draws(201, 3000));
    expectDraws(3200);
    history::replaceHistory(history, workspace, draws(10001, 300));
    expectDraws(300);
}

TEST_P(History, ADatabaseErrorInTheMiddleOfASelectionTakesBackAllOfIt) {
    sql::Database& db = *workspace.dbNumsave;
    const auto save = [&](int count) {
        sql::Transaction all(db);
        for (const char* table : {"SAVE", "SAVEB", "SAVEdan"})
            for (int row = 0; row < count; ++row) {
                sql::Recordset records = db.openRecordset(table);
                records.addNew();
                records.set("Name", std::string(200, 'n'));
                records.update();
            }
        all.commit();
    };
    save(1);
    place->takeRoom();
    EXPECT_EQ(errorOf([&] { save(900); }), sql::error::kDiskFull);
    place->giveRoom();
    for (const char* table : {"SAVE", "SAVEB", "SAVEdan"})
        EXPECT_EQ(db.rowCount(table), 1);
    save(2);
    for (const char* table : {"SAVE", "SAVEB", "SAVEdan"})
        EXPECT_EQ(db.rowCount(table), 3);
}

TEST_P(NoRoom, ASettingThatCannotBeWrittenHoldsAndGoesWithTheNext) {
    const QString kLong(9000, u'x');
    workspace::Settings settings(place->folder());
    ASSERT_TRUE(settings.set(u"A"_s, u"S"_s, u"first"_s, u"1"_s));
    place->takeRoom();
    EXPECT_FALSE(settings.set(u"A"_s, u"S"_s, u"second"_s, kLong));
    EXPECT_EQ(settings.value(u"A"_s, u"S"_s, u"second"_s), kLong);
    EXPECT_EQ(workspace::Settings(place->folder()).value(u"A"_s, u"S"_s, u"first"_s), u"1"_s);
    place->giveRoom();
    EXPECT_TRUE(settings.set(u"A"_s, u"S"_s, u"third"_s, u"3"_s));
    const workspace::Settings again(place->folder());
    EXPECT_EQ(again.value(u"A"_s, u"S"_s, u"first"_s), u"1"_s);
    EXPECT_EQ(again.value(u"A"_s, u"S"_s, u"second"_s), kLong);
    EXPECT_EQ(again.value(u"A"_s, u"S"_s, u"third"_s), u"3"_s);
}

TEST_P(NoRoom, TemplatesAreMadeWholeOrNotAtAll) {
    place->takeRoom();
    std::string message;
    EXPECT_EQ(errorOf([&] { workspace::makeMissingTemplates(engine, place->folder()); }, &message),
              sql::error::kDiskFull)
        << message;
    for (const workspace::TemplateFile& file : workspace::kTemplateFiles)
        EXPECT_FALSE(std::filesystem::exists(place->folder() / file.templateName)) << file.templateName;
    place->giveRoom();
    workspace::makeMissingTemplates(engine, place->folder());
    EXPECT_NO_THROW(crash::Work::verifyTemplates(place->folder()));
    for (const workspace::TemplateFile& file : workspace::kTemplateFiles)
        EXPECT_TRUE(std::filesystem::exists(place->folder() / file.templateName)) << file.templateName;
}

constexpr PlaceKind kPlaces[] = {
    {"FilesAtTheirLimit", [] { return std::unique_ptr<Place>(std::make_unique<LimitedFiles>()); }},
    {"FullDisk", [] { return std::unique_ptr<Place>(std::make_unique<SmallDisk>()); }},
};
std::string nameOf(const ::testing::TestParamInfo<PlaceKind>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(On, NoRoom, ::testing::ValuesIn(kPlaces), nameOf);
INSTANTIATE_TEST_SUITE_P(On, History, ::testing::ValuesIn(kPlaces), nameOf);

} // namespace
