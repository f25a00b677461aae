// The command tree as data: what the windows and the desks rely on.
#include <set>

#include <gtest/gtest.h>

#include "mainwin/menu_table.h"

using namespace Qt::StringLiterals;

namespace mainwin {
namespace {

bool takesCommand(const MenuRow& row) {
    return row.kind == RowKind::Entry || row.kind == RowKind::Choice;
}

TEST(MenuTable, ARowLiesAtMostOneDeeperThanTheMenuAboveIt) {
    int depth = 0;
    bool mayGoDeeper = false;
    for (const MenuRow& row : menuTable()) {
        EXPECT_LE(row.depth, mayGoDeeper ? depth + 1 : depth) << row.name.toStdString();
        depth = row.depth;
        mayGoDeeper = row.kind == RowKind::Menu;
    }
}

/// Controls are found by their names.
TEST(MenuTable, NoTwoRowsHaveOneName) {
    std::set<QString> names;
    for (const MenuRow& row : menuTable())
        if (row.kind != RowKind::Separator) {
            EXPECT_TRUE(names.insert(row.objectName()).second) << row.objectName().toStdString();
        }
    EXPECT_TRUE(names.contains(u"meuS(33)"_s));
    EXPECT_TRUE(names.contains(u"mnuLst"_s));
}

/// A button acts as its entry, so it is offered when that is.
TEST(MenuTable, AButtonNeedsWhatItsMenuEntryNeeds) {
    int shared = 0;
    for (const auto& table : {toolbarTable(), buttonTable()})
        for (const ButtonRow& button : table)
            for (const MenuRow& row : menuTable())
                if (takesCommand(row) && row.name == button.command) {
                    EXPECT_EQ(row.needs, button.needs) << button.name.toStdString();
                    ++shared;
                }
    EXPECT_EQ(shared, 11);
}

} // namespace
} // namespace mainwin
