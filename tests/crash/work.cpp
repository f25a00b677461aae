#include "crash/work.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include <QFile>

#include "crash/contents.h"
#include "filter/member.h"
#include "filter/parameter_run.h"
#include "filter/row_states.h"
#include "history/derive.h"
#include "history/statistics.h"
#include "history/store.h"
#include "history/text_file.h"
#include "history/text_lines.h"
#include "selection/enumeration.h"
#include "workspace/paths.h"
#include "workspace/safe_file.h"
#include "workspace/templates.h"
#include "workspace/user_files.h"

using namespace Qt::StringLiterals;

namespace crash {

namespace {

const QString kUser = u"张三"_s;
const QString kApplication = u"张三QS"_s;
constexpr std::int32_t kIssuesOfAHistory = 10000; // an issue number is that of its history and its place in there
constexpr int kMostDraws = 5000;                  // beyond, the history is replaced by a fresh one
constexpr const char* kSaveTables[] = {"SAVE", "SAVEB", "SAVEdan"};

int below(std::mt19937& random, int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
}

[[noreturn]] void wrong(const std::string& what) {
    throw std::runtime_error(what);
}

void require(bool holds, const std::string& what) {
    if (!holds)
        wrong(what);
}

std::string text(std::int64_t number) {
    return std::to_string(number);
}

const filter::FilterMember& member() {
    return filter::kFilterMembers[0];
}

} // namespace

Work::Work(const std::filesystem::path& folder) : m_folder(folder), m_settings(folder / "config") {
    if (!std::filesystem::exists(workspace::userFolder(folder, kUser)))
        workspace::createUserFiles(m_engine, folder, kUser);
    m_workspace = workspace::enterUser(m_settings, folder, kUser);
    const workspace::OpenResult opened = workspace::openWorkspace(m_engine, m_workspace);
    require(opened.opened, "the workspace does not open");
    require(!opened.repaired, "the workspace needed a repair");
    history::loadHistory(m_history, m_workspace);
}

history::Draw Work::drawOf(std::int32_t issue) {
    std::mt19937 random(static_cast<unsigned>(issue));
    std::vector<int> reds(33);
    std::iota(reds.begin(), reds.end(), 1);
    std::shuffle(reds.begin(), reds.end(), random);
    std::sort(reds.begin(), reds.begin() + 6);
    history::Draw draw{issue};
    std::copy_n(reds.begin(), 6, draw.begin() + 1);
    draw[7] = below(random, 16) + 1;
    return draw;
}

void Work::run(const std::string& operation, std::mt19937& random) {
    if (operation == "press")
        press(random);
    else if (operation == "states")
        changeStates(random);
    else if (operation == "generate")
        generate(random);
    else if (operation == "draws")
        addDraws(below(random, 60) + 1);
    else if (operation == "one draw")
        history::storeDraw(m_history, m_workspace, drawOf(m_history.Lshm.back()[0] + 1));
    else if (operation == "history")
        replaceHistory(below(random, 3000) + 1);
    else if (operation == "setting")
        require(m_settings.set(kApplication, u"Crash"_s, u"Count"_s, setting() + 1), "a setting is not written");
    else if (operation == "selection")
        saveSelection();
    else
        makeTemplateAgain(random);
}

void Work::press(std::mt19937& random) {
    const auto catalogue = member().catalogue();
    const filter::Workbench bench{*m_workspace.dbFilnum, member().table, m_history, m_workspace.Bitnum};
    const auto& parameter = catalogue[static_cast<std::size_t>(below(random, static_cast<int>(catalogue.size())))];
    const int low = below(random, 20);
    filter::RunSettings settings;
    settings.Baoliu = below(random, 2) == 0 ? filter::kKeep : filter::kRemove;
    filter::ParameterRun(bench).press(parameter, {text(low), text(low + below(random, 40)), {}}, settings);
}

void Work::changeStates(std::mt19937& random) {
    const filter::RowStates states(*m_workspace.dbFilnum, member().table);
    switch (below(random, 5)) {
    case 0:
        return states.resetAll();
    case 1:
        return states.restoreLast();
    case 2:
        return states.invertAll();
    case 3:
        return states.invertLast();
    default:
        states.toggle(text(below(random, 150000) + 1));
    }
}

void Work::generate(std::mt19937& random) {
    selection::GenerationInput input;
    input.Genreds = kReds;
    const int first = below(random, 33 - kReds) + 1;
    for (int red = first; red < first + kReds; ++red)
        input.chosen.reds.push_back(red);
    for (int blue = 0; blue < 4 + below(random, 3); ++blue)
        input.chosen.blues.push_back(blue + 1);
    selection::Enumeration(input).fill(*m_workspace.dbFilnum, filter::shapeOf(member()), nullptr);
}

void Work::addDraws(int count) {
    if (m_history.Lsnum + count > kMostDraws)
        return replaceHistory(count);
    std::vector<history::Draw> draws;
    for (int draw = 1; draw <= count; ++draw)
        draws.push_back(drawOf(m_history.Lshm.back()[0] + draw));
    history::storeBatch(m_history, m_workspace, draws);
}

void Work::replaceHistory(int count) {
    const std::int32_t first = (m_history.Lshm.back()[0] / kIssuesOfAHistory + 1) * kIssuesOfAHistory;
    std::vector<history::Draw> draws;
    for (int draw = 1; draw <= count; ++draw)
        draws.push_back(drawOf(first + draw));
    history::replaceHistory(m_history, m_workspace, draws);
}

/// One row in each of the three tables, as one step.
void Work::saveSelection() {
    sql::Database& database = *m_workspace.dbNumsave;
    const std::int64_t number = database.rowCount("SAVE") + 1;
    sql::Transaction all(database);
    for (const char* table : kSaveTables) {
        sql::Recordset records = database.openRecordset(table);
        records.addNew();
        records.set("Name", "选号" + text(number));
        records.set("Idx", number);
        for (int place = 1; place <= 38; ++place)
            records.set("f" + text(place), number % (place + 1));
        records.update();
    }
    all.commit();
}

/// A template that somebody has deleted is made anew.
void Work::makeTemplateAgain(std::mt19937& random) {
    const auto& file =
        workspace::kTemplateFiles[below(random, static_cast<int>(std::size(workspace::kTemplateFiles)))];
    std::filesystem::remove(m_folder / file.templateName);
    workspace::makeMissingTemplates(m_engine, m_folder);
}

int Work::setting() const {
    return m_settings.number(kApplication, u"Crash"_s, u"Count"_s, u"0"_s);
}

void Work::ensureTemplates() {
    workspace::makeMissingTemplates(m_engine, m_folder);
}

void Work::startAgain(const std::filesystem::path& folder) {
    sql::Engine engine;
    workspace::makeMissingTemplates(engine, folder);
    workspace::Workspace opened = workspace::enterUser(workspace::Settings(folder / "config"), folder, kUser);
    require(workspace::openWorkspace(engine, opened).opened, "the workspace does not open");
}

void Work::store() {
    m_workspace.dbFilnum->store();
}

Contents Work::contents() {
    return {text(m_history.Lshm.back()[0]) + "/" + text(m_history.Lsnum),
            text(m_workspace.dbNumsave->rowCount("SAVE")), text(setting()), tableChecksum(*m_workspace.dbFilnum)};
}

void Work::verify() {
    verifyHistory();
    verifySelections();
    verifyTemplates(m_folder);
}

void Work::verifyHistory() {
    sql::Database& dbUser = *m_workspace.dbUser;
    const std::int64_t draws = m_history.Lsnum;
    for (const char* table : {"fig", "Ylqs", "YlqsB"})
        require(dbUser.rowCount(table) == draws, std::string(table) + " has another number of draws than fig");
    require(m_workspace.dbFilnum->rowCount("fig") >= draws, "fig of the bare numbers lacks draws");
    const std::int32_t last = m_history.Lshm.back()[0];
    for (std::int32_t draw = 1; draw <= draws; ++draw) {
        const auto& stored = m_history.Lshm[static_cast<std::size_t>(draw)];
        require(stored == drawOf(last - static_cast<std::int32_t>(draws) + draw), "a draw is not what was stored");
    }
    const auto number = [&](const char* select) { return sql::toInteger(dbUser.queryValue(select)); };
    require(number("SELECT SUM([Glnum]) FROM [Gailv]") == 6 * draws, "Gailv counts other hits than fig");
    require(number("SELECT SUM([Glnum]) FROM [GailvB]") == draws, "GailvB counts other hits than fig");
    require(draws == 0 || number("SELECT Max([Qihao]) FROM [Ylqs]") == last, "Ylqs ends with another draw");
    require(draws == 0 || number("SELECT Max([Qihao]) FROM [YlqsB]") == last, "YlqsB ends with another draw");
}

void Work::readText(const std::filesystem::path& file) {
    /// Picks the file; the question whether to read is answered with yes, and there is no other.
    struct Yes : workspace::Dialogs {
        explicit Yes(const std::filesystem::path& file) : m_file(workspace::toQString(file)) {}
        bool confirm(const workspace::Message&, workspace::Risk) override { return true; }
        QString chooseFile(const QString&, const QString&) override { return m_file; }
        void tell(const workspace::Message& message) override { wrong(message.text.toStdString()); }
        void warn(const workspace::Message& message) override { tell(message); }
        std::optional<QString> askText(const QString&, const QString&, const QString&) override { return {}; }
        QString m_file;
    } yes(file);
    std::filesystem::remove(history::historyTextFile(m_workspace)); // nothing is in the way of the copy
    require(history::readWhole(m_history, m_workspace, yes) == history::Reading::Done, "the text is not read");
}

/// By the rules for one draw, without a table.
void Work::verifyHistoryIs(const std::vector<history::Draw>& draws) {
    constexpr workspace::Rule kRule{33, 16};
    history::History expected;
    for (const history::Draw& draw : draws) {
        expected.derived.push_back(history::deriveDraw(draw, expected.Lshm.back(), expected.Ylnow, kRule));
        history::countDraw(expected, draw, kRule);
        expected.Lshm.push_back(draw);
    }
    history::computeShares(expected, kRule);
    require(m_history.Lshm == expected.Lshm, "fig holds other draws");
    require(m_history.derived == expected.derived, "fig holds other parameters");
    require(m_history.Ylnow == expected.Ylnow && m_history.YlnowB == expected.YlnowB, "the omissions are others");
    require(m_history.Glred == expected.Glred && m_history.GlBlue == expected.GlBlue, "the hits are others");
    require(m_history.Gailvred == expected.Gailvred && m_history.GailvBlue == expected.GailvBlue,
            "the shares are others");
    for (const char* table : {"Ylqs", "YlqsB"}) {
        sql::Recordset records = m_workspace.dbUser->openRecordset(table);
        require(records.recordCount() == static_cast<std::int64_t>(draws.size()),
                std::string(table) + " is not whole");
        for (const history::Draw& draw : draws) {
            require(sql::toInteger(records.field("Qihao")) == draw[0], std::string(table) + " holds another draw");
            records.moveNext();
        }
    }
}

void Work::verifyTextIsOneOf(const std::vector<std::vector<history::Draw>>& histories) {
    QFile text(workspace::toQString(history::historyTextFile(m_workspace)));
    if (!text.open(QIODevice::ReadOnly))
        return;
    const auto draws = history::parseDraws(history::decodeText(text.readAll())).draws;
    require(std::ranges::count(histories, draws) == 1, "the default text file is not whole");
}

void Work::verifySelections() {
    sql::Database& database = *m_workspace.dbNumsave;
    for (const char* table : kSaveTables) {
        require(database.rowCount(table) == database.rowCount("SAVE"), "the tables of selections differ");
        sql::Recordset records = database.openRecordset(table);
        for (std::int64_t number = 1; !records.eof(); ++number, records.moveNext()) {
            require(sql::toInteger(records.field("Idx")) == number, "a selection is missing");
            require(sql::toInteger(records.field("f38")) == number % 39, "a selection is not what was stored");
        }
    }
}

/// A template is whole or not there.
void Work::verifyTemplates(const std::filesystem::path& folder) {
    sql::Engine engine;
    const std::pair<const char*, std::vector<const char*>> kTables[] = {
        {"Lishihaoma.mdb", {"fig", "Gailv", "GailvB", "Gailvtmp", "GailvtmpB", "Ylqs", "YlqsB", "CsGailvtmp"}},
        {"filnum.mdb", {"fig", "zuhe", "zuheRote", "zuheRead", "zuheReadR", "zuheMoban", "zuhef", "Canshu", "Xhmb"}},
        {"filnumR.mdb", {"zuheR", "zuheRoteR", "zuheReadR", "zuheMobanR", "Canshu", "moban"}},
        {"numsave.mdb", {"SAVE", "SAVEB", "SAVEdan"}},
        {"Gailv.mdb", {"Gailv", "GailvB"}},
    };
    for (const auto& [file, tables] : kTables) {
        if (!std::filesystem::exists(folder / file))
            continue;
        const auto database = engine.open(folder / file);
        for (const char* table : tables)
            require(database->hasTable(table), std::string(file) + " lacks " + table);
        if (database->hasTable("Gailv"))
            require(database->rowCount("Gailv") == 38, std::string(file) + " lacks shares");
    }
}

} // namespace crash
