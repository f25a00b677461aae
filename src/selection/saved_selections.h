// Saved selections: the whole state of the pad under a name, in three tables of numsave.mdb.
//
// SAVE holds the reds, SAVEdan the bankers, SAVEB the blues: one row each for a save, numbers from f1 on in the order
// of the pad's lists, BitR how many, Idx the table's count of records and 1. Deleting and renaming work on one table
// alone, so rows of the others stay behind and an Idx can come again; the first row that bears it is the one that
// counts. A table in which the row is missing gives no numbers.
//
// Names are put between double quotes as they are: a name that holds one cannot be deleted or renamed, and is refused
// before a statement could reach other rows.
#pragma once

#include <vector>

#include <QDateTime>
#include <QString>

#include "selection/pad.h"
#include "sql/database.h"

namespace selection {

/// The tables that the picker shows.
enum class SavedTable { Reds, Blues };

/// A row of a table.
struct SavedRow {
    QString name{};
    int idx = 0;
    std::vector<int> numbers{}; ///< BitR of them
};

/// What is called back.
struct SavedNumbers {
    std::vector<int> reds{};
    std::vector<int> bankers{};
    std::vector<int> blues{};
};

/// "选号保存于26-11-22日9.5.7秒"
QString proposedSaveName(const QDateTime& now);
/// "选号名字修改于26-11-22日 9.5.7秒"
QString proposedNewName(const QDateTime& now);

/// Writes the three rows, or, when it throws, none. Columns that a table of an older workspace lacks are added.
/// \param name  beyond 255 characters it is cut by the table \throws sql::SqlError
void saveSelection(sql::Database& dbNumsave, const Pad& pad, const QString& name);

/// The three rows of an Idx. \throws sql::SqlError
SavedNumbers savedNumbers(sql::Database& dbNumsave, int idx);
/// The reds alone. \throws sql::SqlError
std::vector<int> savedReds(sql::Database& dbNumsave, int idx);

/// In place of what is on the pad: clears the reds, presses them, makes the bankers, clears the blues, presses them.
/// Numbers outside the rule are passed over.
void callSelection(Pad& pad, const SavedNumbers& saved);
/// Beside what is on the pad: presses the reds and the blues that are not selected, then makes the bankers. A banker
/// of the pad among the reds becomes a plain number; one among the bankers becomes free, as 胆-选择/取消 does it.
void addSelection(Pad& pad, const SavedNumbers& saved);

/// All rows of a table, oldest first. \throws sql::SqlError
std::vector<SavedRow> savedRows(sql::Database& dbNumsave, SavedTable table);
/// Every row of this table that bears the name. \throws sql::SqlError, workspace::Failure for a name with a quote
void deleteSaved(sql::Database& dbNumsave, SavedTable table, const QString& name);
/// \throws as deleteSaved, for either name
void renameSaved(sql::Database& dbNumsave, SavedTable table, const QString& name, const QString& newName);

} // namespace selection
