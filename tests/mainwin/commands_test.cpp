// Functions under the names of menu entries and buttons.
#include "mainwin/commands.h"

#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "mainwin/menu_table.h"

using namespace Qt::StringLiterals;

namespace mainwin {
namespace {

const auto kNothing = [](int) {};

/// A misspelt name would leave an entry dead, two functions would fight for one: the start says so.
TEST(Commands, TakeOnlyTheNamesOfTheTablesAndEachOnce) {
    Commands commands;
    commands.on(u"mnuLst"_s, kNothing);
    EXPECT_THROW(commands.on(u"mnuLst"_s, kNothing), std::logic_error);
    EXPECT_THROW(commands.on(u"mnuLsst"_s, kNothing), std::logic_error);
    EXPECT_THROW(commands.on(u"mnuSl"_s, kNothing), std::logic_error) << "a menu is no entry";
    EXPECT_THROW(commands.on(u"meuS(33)"_s, kNothing), std::logic_error) << "an array is registered whole";
    EXPECT_THROW(commands.on(QString(), kNothing), std::logic_error) << "the name of a separator";
    const auto never = [](int) { return false; };
    commands.mark(u"meuS"_s, never);
    EXPECT_THROW(commands.mark(u"meuS"_s, never), std::logic_error);
    EXPECT_THROW(commands.mark(u"meuSS"_s, never), std::logic_error);
}

TEST(Commands, KnowEveryEntryChoiceAndButton) {
    Commands commands;
    const auto take = [&](const QString& name) {
        if (!commands.isRegistered(name)) {
            EXPECT_NO_THROW(commands.on(name, kNothing)) << name.toStdString();
        }
    };
    for (const MenuRow& row : menuTable())
        if (row.kind == RowKind::Entry || row.kind == RowKind::Choice)
            take(row.name);
    for (const auto& table : {toolbarTable(), buttonTable()})
        for (const ButtonRow& row : table)
            if (!row.command.isEmpty())
                take(row.command);
    EXPECT_TRUE(commands.isRegistered(u"ext"_s)) << "of the toolbar alone";
    EXPECT_TRUE(commands.isRegistered(u"meuSpd8"_s)) << "a choice";
}

TEST(Commands, RunWithTheIndexOfTheirArray) {
    Commands commands;
    std::vector<int> ran;
    commands.on(u"meuS"_s, [&](int index) { ran.push_back(index); });
    commands.run(u"meuS"_s, 33);
    commands.run(u"meuS"_s, -1);
    commands.run(u"mnuLst"_s, 1); // the window of this one does not exist yet
    EXPECT_EQ(ran, (std::vector<int>{33, -1}));
}

/// Asked each time: what is missing changes with every number that is chosen.
TEST(Commands, SayWhatTheyWaitForAsLongAsTheyDo) {
    Commands commands;
    QString missing = u"1 蓝"_s;
    commands.on(u"mnuLst"_s, kNothing, [&] { return missing; });
    commands.on(u"mnuDtlst"_s, kNothing);
    EXPECT_EQ(commands.missing(u"mnuLst"_s), u"1 蓝"_s);
    missing.clear();
    EXPECT_EQ(commands.missing(u"mnuLst"_s), QString());
    EXPECT_EQ(commands.missing(u"mnuDtlst"_s), QString());
    EXPECT_EQ(commands.missing(u"mnu8Lst"_s), QString()) << "not registered";
}

TEST(Commands, AMarkIsAskedByIndexAndNeedsNoFunction) {
    Commands commands;
    commands.mark(u"meuS"_s, [](int index) { return index == 33; });
    ASSERT_NE(commands.markOf(u"meuS"_s), nullptr);
    EXPECT_TRUE((*commands.markOf(u"meuS"_s))(33));
    EXPECT_FALSE((*commands.markOf(u"meuS"_s))(32));
    EXPECT_EQ(commands.markOf(u"mnuBlue"_s), nullptr);
    EXPECT_FALSE(commands.isRegistered(u"meuS"_s));
}

} // namespace
} // namespace mainwin
