// Saved settings and recorded steps: what is stored of a window's state, and what comes back.
#include "filter/saved_settings.h"

#include <gtest/gtest.h>

#include "filter/member.h"
#include "filter/step_template.h"
#include "scratch_folder.h"
#include "workspace/failure.h"

using namespace Qt::StringLiterals;

namespace {

using filter::Logic;
using filter::Mode;
using filter::Parameter;
using filter::RecordedStep;
using filter::SavedSettings;
using filter::SettingRow;
using filter::Step;
using filter::StepTemplate;
using filter::WindowState;
using workspace::FilterFamily;

/// A state in which every box holds a text of its own.
WindowState filled(std::span<const Parameter> catalogue, Mode mode) {
    WindowState state = filter::defaultState(catalogue);
    state.mode = mode;
    for (const Parameter& parameter : catalogue) {
        filter::RowState& row = state.row(parameter);
        const std::string tick = std::to_string(parameter.tick);
        row.low = tick + "1";
        row.high = tick + "2";
        row.list = parameter.isInterval() ? std::string() : " 7 " + tick + " ";
        row.odd = parameter.oddBox >= 0 && parameter.tick % 2 == 0;
        row.even = parameter.oddBox >= 0 && parameter.tick % 3 == 0;
    }
    state.intervalAbove = "3";
    state.intervalTo = "17";
    state.pickedNumbers = "1 2 3";
    state.toleranceCount = "4";
    state.tolerancePercent = "40";
    return state;
}

struct Family {
    const char* name;
    FilterFamily family;
    std::span<const Parameter> (*catalogue)();
};

class SavedState : public testing::TestWithParam<Family> {
  protected:
    SavedState() { workspace::completeFilterTables(*db, GetParam().family); }

    std::span<const Parameter> catalogue() const { return GetParam().catalogue(); }
    SavedSettings settings() { return {*db, GetParam().family}; }
    StepTemplate steps() { return {*db, GetParam().family, catalogue()}; }
    WindowState called(const QString& name, WindowState into) {
        const std::optional<SettingRow> row = settings().call(name);
        EXPECT_TRUE(row);
        if (row)
            filter::restore(*row, catalogue(), into);
        return into;
    }

    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> db = engine.create(folder.path() / "filnum.mdb");
};

TEST_P(SavedState, ARangeSettingBringsBackEveryBoxOfTheRanges) {
    const WindowState state = filled(catalogue(), Mode::Range);
    settings().save(u"甲"_s, filter::settingOf(state, catalogue()));
    const WindowState back = called(u"甲"_s, filter::defaultState(catalogue()));
    for (const Parameter& parameter : catalogue()) {
        EXPECT_EQ(back.row(parameter).low, state.row(parameter).low) << parameter.option;
        EXPECT_EQ(back.row(parameter).high, state.row(parameter).high) << parameter.option;
        EXPECT_EQ(back.row(parameter).odd, state.row(parameter).odd) << parameter.option;
        EXPECT_EQ(back.row(parameter).even, state.row(parameter).even) << parameter.option;
        EXPECT_EQ(back.row(parameter).list, "") << parameter.option << " is of the other list";
    }
    EXPECT_EQ(back.intervalAbove, "3");
    EXPECT_EQ(back.intervalTo, "17");
    EXPECT_EQ(back.pickedNumbers, "") << "is of the other list";
    EXPECT_EQ(back.toleranceCount, "4");
    EXPECT_EQ(back.tolerancePercent, "40");
}

TEST_P(SavedState, AListSettingBringsBackTheListsAndTheBoundsOfTheInterval) {
    const WindowState state = filled(catalogue(), Mode::List);
    settings().save(u"乙"_s, filter::settingOf(state, catalogue()));
    const WindowState before = filter::defaultState(catalogue());
    const WindowState back = called(u"乙"_s, before);
    EXPECT_EQ(back.mode, Mode::List);
    for (const Parameter& parameter : catalogue()) {
        const bool stored = parameter.boxes.name != "Text27"; // the list of 奇数之和 has no column
        EXPECT_EQ(back.row(parameter).list, (stored ? state : before).row(parameter).list) << parameter.option;
        const WindowState& bounds = parameter.isInterval() ? state : before;
        EXPECT_EQ(back.row(parameter).low, bounds.row(parameter).low) << parameter.option;
        EXPECT_FALSE(back.row(parameter).odd) << "marks are of the ranges alone";
    }
    EXPECT_EQ(back.pickedNumbers, "1 2 3");
    EXPECT_EQ(back.intervalAbove, before.intervalAbove);
    EXPECT_EQ(back.toleranceCount, "4");
}

TEST_P(SavedState, CallingARangeSettingTurnsTheListsOff) {
    settings().save(u"甲"_s, filter::settingOf(filled(catalogue(), Mode::Mean), catalogue()));
    EXPECT_EQ(called(u"甲"_s, filled(catalogue(), Mode::List)).mode, Mode::Range);
    EXPECT_EQ(called(u"甲"_s, filled(catalogue(), Mode::Mean)).mode, Mode::Mean);
}

TEST_P(SavedState, AnEmptyBoxStaysEmpty) {
    WindowState state = filled(catalogue(), Mode::Range);
    state.row(catalogue()[0]).low.clear();
    settings().save({}, filter::settingOf(state, catalogue()));
    EXPECT_EQ(settings().names(), std::vector<QString>{QString()});
    EXPECT_EQ(called({}, filled(catalogue(), Mode::Range)).row(catalogue()[0]).low, "");
}

TEST_P(SavedState, OfOneNameTheFirstIsCalledAndAllAreRenamed) {
    WindowState state = filled(catalogue(), Mode::Range);
    settings().save(u"甲"_s, filter::settingOf(state, catalogue()));
    state.toleranceCount = "9";
    settings().save(u"甲"_s, filter::settingOf(state, catalogue()));
    EXPECT_EQ(called(u"甲"_s, state).toleranceCount, "4");
    settings().rename(u"甲"_s, u"丙"_s);
    EXPECT_EQ(settings().names(), (std::vector{u"丙"_s, u"丙"_s}));
    settings().remove(u"丙"_s);
    EXPECT_TRUE(settings().names().empty());
    EXPECT_FALSE(settings().call(u"丙"_s));
}

TEST_P(SavedState, ANameWithAQuoteReachesNoOtherRow) {
    const SettingRow row = filter::settingOf(filled(catalogue(), Mode::Range), catalogue());
    settings().save(u"甲"_s, row);
    const QString quote = u"x\" OR \"1\" = \"1"_s;
    settings().save(quote, row);
    EXPECT_THROW(settings().call(quote), workspace::Failure);
    EXPECT_THROW(settings().remove(quote), workspace::Failure);
    EXPECT_THROW(settings().rename(u"甲"_s, quote), workspace::Failure);
    EXPECT_EQ(settings().names(), (std::vector{u"甲"_s, quote}));
}

TEST_P(SavedState, TablesOfAnOlderWorkspaceGetTheColumnsThatTheyLack) {
    db->execute("DROP TABLE [Canshu]");
    db->execute("CREATE TABLE [Canshu]([Name] string,[opt36] Bit)");
    db->execute("INSERT INTO [Canshu] ([Name],[opt36]) VALUES (\"旧\",0)");
    db->execute("DROP TABLE [moban]");
    workspace::completeFilterTables(*db, GetParam().family);
    EXPECT_EQ(called(u"旧"_s, filled(catalogue(), Mode::Range)).toleranceCount, "");
    steps().append(4);
    EXPECT_EQ(steps().count(), 1);
}

TEST_P(SavedState, AnIntegratedStepKeepsTheSettingTheMarksAndTheLogic) {
    WindowState state = filled(catalogue(), Mode::Range);
    for (const std::size_t tick : {0, 3, 14, 31})
        state.rows[tick].ticked = true;
    state.logic = Logic::Or;
    state.keep = false;
    steps().append(filter::kIntegratedCode);
    steps().writeIntegrated(state);
    const std::optional<RecordedStep> step = steps().at(1);
    ASSERT_TRUE(step);
    WindowState back = filter::defaultState(catalogue());
    back.rows[31].ticked = true;
    back.rows[7].ticked = true;
    filter::restore(*step, catalogue(), back);
    EXPECT_FALSE(back.rows[0].ticked) << "has no column";
    EXPECT_TRUE(back.rows[31].ticked) << "has no column: stays as it was";
    EXPECT_TRUE(back.rows[3].ticked);
    EXPECT_TRUE(back.rows[14].ticked);
    EXPECT_FALSE(back.rows[7].ticked);
    EXPECT_EQ(back.logic, Logic::Or);
    EXPECT_FALSE(back.keep);
    EXPECT_EQ(back.row(catalogue()[0]).low, state.row(catalogue()[0]).low);
}

INSTANTIATE_TEST_SUITE_P(Families, SavedState,
                         testing::Values(Family{"SixAndBlue", FilterFamily::SixAndBlue, &filter::sixAndBlueCatalogue},
                                         Family{"SixRed", FilterFamily::SixRed, &filter::sixRedCatalogue}),
                         [](const auto& info) { return info.param.name; });

class Recorded : public testing::Test {
  protected:
    Recorded() { workspace::completeFilterTables(*db, FilterFamily::SixAndBlue); }
    static const filter::SuperFilter* filterOf(int code) {
        return filter::superFilterOf(filter::sixAndBlueSuperFilters(), code);
    }
    QString described(int Idx) { return filter::describe(*steps.at(Idx), filter::sixAndBlueSuperFilters()); }
    Step step(int Idx) { return filter::stepOf(*steps.at(Idx), filter::sixAndBlueSuperFilters()); }

    ScratchFolder folder;
    sql::Engine engine;
    std::unique_ptr<sql::Database> db = engine.create(folder.path() / "filnum.mdb");
    StepTemplate steps{*db, FilterFamily::SixAndBlue, filter::sixAndBlueCatalogue()};
};

TEST_F(Recorded, StepsAreNumberedWithoutGaps) {
    for (const int code : {1, 2, 15})
        steps.append(code);
    steps.deleteLast();
    steps.append(0);
    std::string numbers;
    for (const RecordedStep& step : steps.steps())
        numbers += std::to_string(step.Idx) + ":" + std::to_string(step.intCmdnb) + " ";
    EXPECT_EQ(numbers, "1:1 2:2 3:0 ");
    EXPECT_FALSE(steps.at(4));
    EXPECT_FALSE(steps.at(0));
}

TEST_F(Recorded, AnEmptyOneCanBeClearedAndShortened) {
    steps.clear();
    steps.deleteLast();
    steps.writeIntegrated(filled(filter::sixAndBlueCatalogue(), Mode::Range));
    steps.writeAnswers(filter::MatchHistory{filterOf(4), 20});
    EXPECT_EQ(steps.count(), 0);
}

TEST_F(Recorded, EachCodeComesBackAsItsStep) {
    steps.append(4);
    steps.writeAnswers(filter::MatchHistory{filterOf(4), 20});
    steps.append(11);
    steps.writeAnswers(filter::FilterNumbers{filterOf(11), {3, 17, 28}});
    steps.append(14);
    steps.writeAnswers(filter::FilterGroups{filterOf(14), {1, 5, 8, 12, 17, 22, 26, 30, 31, 33}, 3, {7}});
    steps.append(15);
    steps.writeAnswers(filter::TakeOutTemplate{filterOf(15)});
    steps.append(1);
    steps.append(2);
    steps.append(0);
    EXPECT_EQ(std::get<filter::MatchHistory>(step(1)).draws, 20);
    EXPECT_EQ(std::get<filter::MatchHistory>(step(1)).filter->option, "Option27");
    EXPECT_EQ(std::get<filter::FilterNumbers>(step(2)).numbers, (std::vector{3, 17, 28}));
    EXPECT_EQ(std::get<filter::FilterNumbers>(step(2)).filter->option, "Option25(1)");
    const auto group = std::get<filter::FilterGroups>(step(3));
    EXPECT_EQ(group.numbers, (std::vector{1, 5, 8, 12, 17, 22, 26, 30, 31, 33}));
    EXPECT_EQ(group.groupSize, 3);
    EXPECT_TRUE(group.bankers.empty()) << "bankers are not stored";
    EXPECT_EQ(steps.at(3)->sk[1], 1) << "groups begin at sk1";
    EXPECT_EQ(steps.at(3)->sk[0], 33) << "and end with sk0";
    EXPECT_TRUE(std::holds_alternative<filter::TakeOutTemplate>(step(4)));
    EXPECT_TRUE(std::holds_alternative<filter::InvertLast>(step(5)));
    EXPECT_TRUE(std::holds_alternative<filter::InvertAll>(step(6)));
    EXPECT_TRUE(std::holds_alternative<filter::Integrated>(step(7)));
}

TEST_F(Recorded, TheBrowserSaysWhatAStepIs) {
    steps.append(0);
    steps.append(1);
    steps.append(2);
    steps.append(6);
    steps.writeAnswers(filter::MatchHistory{filterOf(6), 100});
    steps.append(13);
    steps.writeAnswers(filter::FilterGroups{filterOf(13), {1, 5, 8}, 2});
    steps.append(10);
    steps.writeAnswers(filter::FilterNumbers{filterOf(10), {3, 17}});
    steps.append(15);
    const QString texts[] = {
        u"模板过滤第1步，使用“多参数整合过滤”功能，参数设置详见参数设置列表"_s,
        u"模板过滤第2步，使用“上一步过滤反选(R)”按钮功能"_s,
        u"模板过滤第3步，使用“全部组号反选(U)”按钮功能"_s,
        u"模板过滤第4步，使用“历史同5过滤”单选按钮功能，检索期数为：100"_s,
        u"模板过滤第5步，使用“相克分组过滤”单选按钮功能，总个数为：3，每组2个，分别为：1 5 8"_s,
        u"模板过滤第6步，使用“相克号过滤”单选按钮功能，总个数为：2，分别为：3 17"_s,
        u"模板过滤第7步，使用“组合模版同号滤”单选按钮功能"_s,
    };
    int Idx = 0;
    for (const QString& text : texts)
        EXPECT_EQ(described(++Idx), text);
}

// The popup was closed without a choice: the second act goes to the step before.
TEST_F(Recorded, AnswersWithoutANewRowOverwriteTheLastStep) {
    steps.append(4);
    steps.writeAnswers(filter::MatchHistory{filterOf(4), 20});
    steps.writeAnswers(filter::MatchHistory{filterOf(7), 99});
    EXPECT_EQ(steps.count(), 1);
    EXPECT_EQ(steps.at(1)->intCmdnb, 4) << "the code is that of the row";
    EXPECT_EQ(steps.at(1)->sknum, 99);
    steps.writeIntegrated(filled(filter::sixAndBlueCatalogue(), Mode::Range));
    EXPECT_EQ(steps.at(1)->intCmdnb, 0) << "the integrated filter writes its code again";
}

TEST_F(Recorded, WhatWasClearedCanBePutBack) {
    steps.append(0);
    steps.writeIntegrated(filled(filter::sixAndBlueCatalogue(), Mode::List));
    steps.writeIntegrated(filled(filter::sixAndBlueCatalogue(), Mode::Range)); // both lists are in the row then
    steps.append(13);
    steps.writeAnswers(filter::FilterGroups{filterOf(13), {1, 5, 8}, 2});
    const std::vector<filter::StoredStep> before = steps.stored();
    EXPECT_GT(before[0].size(), 100U);
    EXPECT_LT(before[1].size(), 40U) << "what was not written is not there";
    steps.clear();
    EXPECT_EQ(steps.count(), 0);
    steps.append(2);
    std::vector<filter::StoredStep> all = before;
    all.push_back(steps.stored()[0]);
    steps.replaceAll(all);
    EXPECT_EQ(steps.count(), 3);
    const std::vector<filter::StoredStep> after = steps.stored();
    EXPECT_EQ(after[0], before[0]);
    EXPECT_EQ(after[1], before[1]);
    EXPECT_EQ(steps.at(3)->intCmdnb, 2) << "numbered anew";
}

} // namespace
