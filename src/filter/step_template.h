// The filter template: recorded steps, in table moban of a combination file, replayed in one go on any table of it.
//
// A step says which control was used and what it was asked with; it holds no statement. Recording has two
// acts: a row is added when the entry of the popup is chosen, and then the last row, whichever it is, gets the
// settings. So a popup that is closed without a choice overwrites the step before: deliberate.
// Steps are numbered 1, 2, … without gaps: only the last one, or all, can be deleted. The template of six reds is
// another one than that of bets with a blue; seven reds have none.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include <QString>

#include "filter/setting_row.h"
#include "filter/step.h"
#include "sql/database.h"

namespace filter {

// Codes of the steps that are no super filter (those stand in super_filters.h).
inline constexpr int kIntegratedCode = 0;
inline constexpr int kInvertLastCode = 1;
inline constexpr int kInvertAllCode = 2;

/// A row of moban.
struct RecordedStep {
    int Idx = 0;
    int intCmdnb = 0;
    SettingRow setting{};                                   ///< of integrated steps, as what follows
    std::array<bool, workspace::kStoredTicks + 1> ticked{}; ///< Check1(1) on; entry 0 is unused
    bool ljh = false;                                       ///< Option37(0), 逻辑和
    bool baoliu = false;                                    ///< Option1(0), 保留
    int sknum = 0;                                          ///< draws to search, or how many numbers
    int skzu = 0;                                           ///< numbers a group
    std::array<int, workspace::kStepNumbers> sk{};          ///< groups begin at sk1 and end with sk0
};

/// A row of moban with every field that it has but its number, to be put back as it was.
using StoredStep = std::vector<std::pair<std::string, sql::Value>>;

class StepTemplate {
  public:
    /// \param database  the family's combination file
    StepTemplate(sql::Database& database, workspace::FilterFamily family, std::span<const Parameter> catalogue)
        : m_database(database), m_family(family), m_catalogue(catalogue) {}

    int count() const;
    std::vector<RecordedStep> steps() const;
    /// The step of that number; nothing when there is none.
    std::optional<RecordedStep> at(int Idx) const;

    /// The first act: a row behind the last one, with nothing but its number and code.
    void append(int Curcmd) const;
    /// The second act, for the integrated filter: the settings go to the last row, and the code again.
    void writeIntegrated(const WindowState& state) const;
    /// The second act, for super filters: what was asked with. Steps that ask for nothing write nothing. Bankers of
    /// group filters are not stored: a replay runs without them.
    void writeAnswers(const Step& step) const;

    void clear() const;
    /// Deletes the last step, if there is one.
    void deleteLast() const;
    /// All rows as they are stored.
    std::vector<StoredStep> stored() const;
    /// These rows, numbered anew, in place of what is there: takes back a deletion. All or nothing.
    void replaceAll(const std::vector<StoredStep>& rows) const;

  private:
    RecordedStep read(const sql::Recordset& record) const;
    template <class Write> void editLast(Write write) const;

    sql::Database& m_database;
    workspace::FilterFamily m_family;
    std::span<const Parameter> m_catalogue;
};

/// What a replay runs. Codes that no control has stand for a number filter.
Step stepOf(const RecordedStep& recorded, std::span<const SuperFilter> filters);
/// Puts the settings of an integrated step into the controls. Lists that it brings back take no typing until a mode
/// is pressed: deliberate.
void restore(const RecordedStep& recorded, std::span<const Parameter> catalogue, WindowState& state);

/// What the browser says of a step.
QString describe(const RecordedStep& recorded, std::span<const SuperFilter> filters);
/// A step as a line of a list: its control, and what it was asked with.
struct StepLine {
    QString control;
    QString asked;
};
StepLine lineOf(const RecordedStep& recorded, std::span<const SuperFilter> filters);

} // namespace filter
