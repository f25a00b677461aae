// Kills a program at work with SIGKILL, opens its files again, and counts what is there.
//
// SSQ_KILLS sets the number of kills (200), SSQ_SEED repeats the operations and the delays of a run; where in an
// operation a kill falls is for the machine to say. Each kill is followed by the next life on the same files.
#include <algorithm>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>

#include <gtest/gtest.h>

#include "crash/driver_process.h"
#include "crash/kill_fixture.h"
#include "crash/work.h"
#include "history/text_lines.h"
#include "scratch_folder.h"
#include "workspace/templates.h"

namespace {

using namespace std::chrono_literals;

crash::Contents readContents(std::istream& words) {
    crash::Contents contents;
    words >> contents.draws >> contents.selections >> contents.setting >> contents.table;
    return contents;
}

/// What a driver has told before it was killed.
struct Told {
    std::optional<crash::Contents> opened;    ///< by ready
    std::optional<crash::Contents> committed; ///< by ready or the last done
    std::optional<crash::Contents> changed;   ///< by the operation that was killed, as far as it came
    std::string killed;                       ///< the operation that was begun and not done; empty: none
    int done = 0;
    std::string failure;

    explicit Told(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            std::istringstream words(line);
            std::string kind;
            int number = 0;
            words >> kind;
            if (kind == "failed")
                failure = line;
            else if (kind == "ready")
                opened = committed = readContents(words);
            else if (words >> number; kind == "begin")
                std::getline(words >> std::ws, killed);
            else if (kind == "changed")
                changed = readContents(words);
            else if (kind == "done") {
                committed = readContents(words);
                changed.reset();
                killed.clear();
                ++done;
            }
        }
    }
};

int templatesIn(const std::filesystem::path& folder) {
    int found = 0;
    for (const workspace::TemplateFile& file : workspace::kTemplateFiles)
        found += std::filesystem::exists(folder / file.templateName);
    return found;
}

/// What one kill came in the middle of, for the summary of a run.
std::string momentOf(const Told& told) {
    if (!told.committed)
        return "start";
    if (told.killed.empty())
        return "between";
    return told.changed ? "store after " + told.killed : told.killed;
}

void expectOneOf(const std::string& found, const std::string& before, bool mayBeBefore,
                 const std::optional<std::string>& after, const char* what) {
    EXPECT_TRUE((mayBeBefore && found == before) || (after && found == *after))
        << what << " is " << found << "; committed " << before << ", then " << after.value_or("(nothing)");
}

/// \param told  of a driver that had come to work
void expectNothingLost(const Told& told, const crash::Contents& found) {
    const crash::Contents& before = *told.committed;
    // Draws, selections and settings are committed when "changed" is said; the combination table only after it.
    const bool committed = told.changed.has_value();
    const auto after = [&](std::string crash::Contents::*part) {
        return committed ? std::optional((*told.changed).*part) : std::nullopt;
    };
    const bool drawsInWork = told.killed == "draws" || told.killed == "one draw" || told.killed == "history";
    if (committed || !drawsInWork)
        expectOneOf(found.draws, before.draws, !committed, after(&crash::Contents::draws), "history");
    else // committed or not; issue numbers only rise, in a new history too
        EXPECT_TRUE(found.draws == before.draws || std::stoi(found.draws) > std::stoi(before.draws))
            << "history is " << found.draws << "; committed " << before.draws;
    const auto next = [](const std::string& number) { return std::to_string(std::stoi(number) + 1); };
    expectOneOf(found.selections, before.selections, !committed,
                told.killed == "selection" && !committed ? next(before.selections)
                                                         : after(&crash::Contents::selections),
                "number of selections");
    expectOneOf(found.setting, before.setting, !committed,
                told.killed == "setting" && !committed ? next(before.setting) : after(&crash::Contents::setting),
                "setting");
    expectOneOf(found.table, before.table, true, after(&crash::Contents::table), "combination table");
}

class Killing : public crash::KillFixture {
  protected:
    Killing() : KillFixture(200) {}

    /// Half of the kills come soon after a store has begun, some during the start, the others anywhere.
    Told killOnce() {
        crash::DriverProcess driver(folder.path(), static_cast<unsigned>(random()));
        const unsigned kind = random() % 10;
        if (kind == 0) {
            driver.listen(upTo(60ms));
        } else {
            driver.listen(60s, "ready");
            driver.listen(upTo(700ms));
            if (kind < 6 && driver.listen(60s, "changed"))
                driver.listen(upTo(25ms));
        }
        const bool wasAlive = driver.kill();
        Told told(driver.lines());
        EXPECT_TRUE(wasAlive) << told.failure;
        return told;
    }
};

TEST_F(Killing, LosesNothingThatWasCommitted) {
    SCOPED_TRACE(seedText());
    std::map<std::string, int> moments;
    int done = 0;
    crash::Contents last = crash::Work(folder.path()).contents();
    for (unsigned kill = 0; kill < kills && !HasFailure(); ++kill) {
        Told told = killOnce();
        if (told.opened) {
            EXPECT_EQ(told.opened->table, last.table) << "opened once more, the table is another one";
            EXPECT_EQ(told.opened->draws, last.draws);
        }
        const std::string moment = momentOf(told);
        if (!told.committed)
            told.committed = last; // killed before it had opened everything: nothing may have changed
        ++moments[moment];
        done += told.done;
        SCOPED_TRACE("kill " + std::to_string(kill) + " in " + moment);
        try {
            crash::Work again(folder.path());
            again.verify();
            last = again.contents();
            expectNothingLost(told, last);
        } catch (const std::exception& failed) {
            ADD_FAILURE() << failed.what();
        }
        if (told.killed != "template") {
            EXPECT_EQ(templatesIn(folder.path()), 5);
        }
        crash::Work(folder.path()).ensureTemplates();
    }
    std::printf("%d operations done; killed in\n", done);
    for (const auto& [moment, count] : moments)
        std::printf("%5d  %s\n", count, moment.c_str());
}

/// Another history of as many draws: every number counted from the other end, under other issues.
std::vector<history::Draw> mirrored(std::vector<history::Draw> draws) {
    for (history::Draw& draw : draws) {
        std::reverse(&draw[1], &draw[7]);
        std::transform(&draw[1], &draw[7], &draw[1], [](std::int32_t red) { return 34 - red; });
        draw[7] = 17 - draw[7];
        draw[0] += 1000000;
    }
    return draws;
}

void writeText(const std::filesystem::path& file, const std::vector<history::Draw>& draws) {
    const QByteArray text = history::drawsAsText(draws);
    std::ofstream(file, std::ios::binary).write(text.data(), text.size());
}

TEST_F(Killing, InAWholeReadingLeavesTheOldOrTheNewHistoryWhole) {
    std::ifstream file(SSQ_REAL_DATA "/draws.txt", std::ios::binary);
    ASSERT_TRUE(file);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const auto real = history::parseDraws(history::decodeText(QByteArray::fromStdString(bytes))).draws;
    ASSERT_EQ(real.size(), 3358u);
    const std::vector<std::vector<history::Draw>> histories{real, mirrored(real)};
    const ScratchFolder texts;
    const std::vector<std::filesystem::path> files{texts.path() / "0.txt", texts.path() / "1.txt"};
    for (const std::size_t which : {0, 1})
        writeText(files[which], histories[which]);
    crash::Work(folder.path()).readText(files[0]);
    std::string last = crash::Work(folder.path()).contents().draws;
    int inReading = 0, old = 0;
    for (unsigned kill = 0; kill < kills && !HasFailure(); ++kill) {
        crash::DriverProcess driver(folder.path(), static_cast<unsigned>(random()), files);
        driver.listen(60s, "begin");
        driver.listen(upTo(400ms)); // some three readings
        EXPECT_TRUE(driver.kill());
        const Told told(driver.lines());
        ASSERT_TRUE(told.committed) << told.failure;
        EXPECT_EQ(told.opened->draws, last);
        crash::Work again(folder.path());
        last = again.contents().draws;
        const bool mirror = again.history().Lshm.back()[0] != real.back()[0];
        SCOPED_TRACE("kill " + std::to_string(kill) + " in the reading of " + told.killed);
        EXPECT_NO_THROW(again.verifyHistoryIs(histories[mirror]));
        EXPECT_NO_THROW(again.verifyTextIsOneOf(histories));
        const bool isOld = last == told.committed->draws;
        EXPECT_TRUE(isOld || told.killed == (mirror ? "1.txt" : "0.txt"));
        inReading += !told.killed.empty();
        old += isOld && !told.killed.empty();
    }
    std::printf("%d kills in a reading, %d of them left the old history\n", inReading, old);
}

TEST_F(Killing, DuringTheFirstStartLeavesTemplatesWholeOrAbsent) {
    std::map<int, int> found;
    for (unsigned kill = 0; kill < kills; ++kill) {
        const ScratchFolder fresh;
        {
            crash::DriverProcess driver(fresh.path(), 1);
            driver.listen(upTo(120ms));
            driver.kill();
        }
        ++found[templatesIn(fresh.path())];
        EXPECT_NO_THROW(crash::Work::verifyTemplates(fresh.path()));
        crash::Work::startAgain(fresh.path()); // what is missing is made, and a half-made workspace repaired
        EXPECT_NO_THROW(crash::Work(fresh.path()).verify());
        EXPECT_EQ(templatesIn(fresh.path()), 5);
    }
    for (const auto& [templates, count] : found)
        std::printf("%d templates after %d kills\n", templates, count);
}

} // namespace
