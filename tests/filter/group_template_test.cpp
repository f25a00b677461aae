#include "filter/group_template.h"

#include <chrono>
#include <cstdio>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "selection/enumeration.h"
#include "selection/bet_source.h"
#include "workspace/templates.h"

TEST(GroupTemplate, Scratch) {
    ScratchFolder folder;
    sql::Engine engine;
    auto db = engine.create(folder.path() / "filnum.mdb");
    selection::GenerationInput input;
    for (int n = 1; n <= 33; ++n) input.chosen.reds.push_back(n);
    input.chosen.blues = {1};
    input.Genreds = 33;
    const auto& member = *filter::findMember("GAgan");
    db->execute(workspace::createCombinationTable("zuheMoban"));
    selection::Enumeration(input).fill(*db, filter::shapeOf(member), nullptr);
    filter::GroupTemplate t(*db, member);
    auto time = [](const char* w, auto f) { auto s = std::chrono::steady_clock::now(); f(); std::printf("%s %.0f ms\n", w, std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - s).count()); };
    std::int64_t n = 0;
    time("add", [&] { n = t.add(); });
    EXPECT_EQ(n, 1107568);
    time("twice", [&] { n = t.add(); });
    EXPECT_EQ(n, 0);
    time("store", [&] { db->store(); });
    time("takeout", [&] { t.takeOutMembers(); });
    EXPECT_EQ(db->query("SELECT idx FROM zuhe WHERE unslt = false").count(), 0);
}
