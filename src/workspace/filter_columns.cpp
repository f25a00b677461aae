#include "workspace/filter_columns.h"

namespace workspace {

namespace {

constexpr int kParameterTicks = 30; // chk1..chk30
constexpr int kTypedNumbers = 9;    // sk0..sk9

void addColumn(std::string& list, std::string_view name, std::string_view type) {
    list += list.empty() ? "[" : ",[";
    list.append(name).append("] ").append(type);
}

std::string_view nameIn(FilterFamily family, const BoxColumn& column) {
    return family == FilterFamily::SixAndBlue ? column.column : column.columnSixRed;
}

/// What a setting and a template step have in common.
void addSettingColumns(std::string& list, FilterFamily family) {
    addColumn(list, "opt36", "Bit");
    for (const BoxColumn& column : kExtremeColumns)
        addColumn(list, nameIn(family, column), "string");
    for (const BoxColumn& column : kRangeColumns)
        addColumn(list, nameIn(family, column), "string");
    for (const std::string_view flag : kPositionFlags)
        addColumn(list, flag, "Bit");
    addColumn(list, "RCperct", "string");
    addColumn(list, "RCcount", "string");
}

} // namespace

std::string canshuColumns(FilterFamily family) {
    std::string list;
    addColumn(list, "Name", "string");
    addSettingColumns(list, family);
    return list;
}

std::string mobanColumns(FilterFamily family) {
    std::string list;
    addColumn(list, "Idx", "integer");
    addColumn(list, "intCmdnb", "integer");
    addSettingColumns(list, family);
    for (int tick = 1; tick <= kParameterTicks; ++tick)
        addColumn(list, "chk" + std::to_string(tick), "integer");
    addColumn(list, "ljh", "Bit");
    addColumn(list, "baoliu", "Bit");
    addColumn(list, "sknum", "integer");
    addColumn(list, "skzu", "integer");
    for (int number = 0; number <= kTypedNumbers; ++number)
        addColumn(list, "sk" + std::to_string(number), "integer");
    return list;
}

} // namespace workspace
