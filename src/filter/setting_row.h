// What is stored of a filter window's state: in a row of Canshu, and in a row of moban.
//
// Of the two lists of boxes only one is stored, that of the mode: the value lists, or the ranges with the parities.
// The bounds of 自定区间 belong to both. Which box a column holds is said once (workspace/filter_columns.h); a box
// that the window's catalogue lacks is neither stored nor called back.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "filter/window_state.h"
#include "workspace/filter_columns.h"

namespace sql {
class Recordset;
}

namespace filter {

struct SettingRow {
    bool opt36 = false;                            ///< value lists; else ranges
    std::map<std::string_view, std::string> boxes; ///< by control, "Text2(5)": the boxes of the list in use
    std::array<bool, std::size(workspace::kPositionFlags)> parities{}; ///< Check2(4) on; ranges only
    std::string RCperct;
    std::string RCcount;

    bool operator==(const SettingRow&) const = default;
};

/// What a window stores.
SettingRow settingOf(const WindowState& state, std::span<const Parameter> catalogue);
/// Puts it into the controls. The mode becomes that of the row: ranges leave 均值差幅 as it is.
void restore(const SettingRow& row, std::span<const Parameter> catalogue, WindowState& state);

/// The current record as a setting; an empty field is empty text. \throws sql::SqlError
SettingRow readSetting(const sql::Recordset& record, workspace::FilterFamily family);
/// Sets the fields of a record that is being edited. A field that takes no such value stays empty.
void writeSetting(sql::Recordset& record, const SettingRow& row, workspace::FilterFamily family);

/// Sets a field; what it does not take is passed over. \return whether it took the value
bool setQuietly(sql::Recordset& record, std::string_view column, sql::Value value);

} // namespace filter
