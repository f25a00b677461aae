#include "filter/setting_row.h"

#include <charconv>

#include "filter/quiet.h"

namespace filter {
namespace {

constexpr int kFirstParity = 4; // Check2(4)
constexpr std::string_view kPicked = "TxtZdqj";
constexpr std::string_view kIntervalBoxes[] = {"Text66(0)", "Text66(1)"}; // ranges that lists store too

/// Family and index of "Text2(5)".
struct Box {
    std::string_view family;
    int index;
};

Box boxOf(std::string_view control) {
    const std::size_t open = control.find('(');
    Box box{control.substr(0, open), -1};
    if (open != std::string_view::npos)
        std::from_chars(control.data() + open + 1, control.data() + control.size(), box.index);
    return box;
}

/// The text of a control. \return nullptr when no parameter of the catalogue has it
std::string* textOf(std::string_view control, std::span<const Parameter> catalogue, WindowState& state) {
    if (control == kPicked)
        return &state.pickedNumbers;
    const Box box = boxOf(control);
    for (const Parameter& parameter : catalogue) {
        const Boxes& boxes = parameter.boxes;
        if (boxes.name != box.family)
            continue;
        RowState& row = state.row(parameter);
        if (box.index == boxes.low)
            return &row.low;
        if (box.index == boxes.high)
            return &row.high;
        if (box.index == boxes.list)
            return &row.list;
        if (box.index == boxes.above)
            return &state.intervalAbove;
        if (box.index == boxes.to)
            return &state.intervalTo;
    }
    return nullptr;
}

/// The parity marks, 奇 and 偶 in turn; nullptr where the catalogue has no such position.
std::array<bool*, std::size(workspace::kPositionFlags)> parityMarks(std::span<const Parameter> catalogue,
                                                                    WindowState& state) {
    std::array<bool*, std::size(workspace::kPositionFlags)> marks{};
    for (const Parameter& parameter : catalogue) {
        if (parameter.oddBox < kFirstParity)
            continue;
        const auto place = static_cast<std::size_t>(parameter.oddBox - kFirstParity);
        marks[place] = &state.row(parameter).odd;
        marks[place + 1] = &state.row(parameter).even;
    }
    return marks;
}

/// Calls `visit` with each column of the list that `opt36` chooses.
template <class Visit> void forEachBox(bool opt36, Visit visit) {
    if (!opt36) {
        for (const workspace::BoxColumn& column : workspace::kRangeColumns)
            visit(column);
        return;
    }
    for (const workspace::BoxColumn& column : workspace::kExtremeColumns)
        visit(column);
    for (const workspace::BoxColumn& column : workspace::kRangeColumns)
        for (const std::string_view shared : kIntervalBoxes)
            if (column.box == shared)
                visit(column);
}

} // namespace

SettingRow settingOf(const WindowState& state, std::span<const Parameter> catalogue) {
    WindowState from = state; // the boxes are found by place, for reading and for writing alike
    SettingRow row{.opt36 = state.mode == Mode::List,
                   .boxes = {},
                   .RCperct = state.tolerancePercent,
                   .RCcount = state.toleranceCount};
    forEachBox(row.opt36, [&](const workspace::BoxColumn& column) {
        if (const std::string* text = textOf(column.box, catalogue, from))
            row.boxes.emplace(column.box, *text);
    });
    if (row.opt36)
        return row;
    const auto marks = parityMarks(catalogue, from);
    for (std::size_t mark = 0; mark < marks.size(); ++mark)
        row.parities[mark] = marks[mark] && *marks[mark];
    return row;
}

void restore(const SettingRow& row, std::span<const Parameter> catalogue, WindowState& state) {
    state.listsLocked = false;
    if (row.opt36)
        state.mode = Mode::List;
    else if (state.mode == Mode::List)
        state.mode = Mode::Range;
    for (const auto& [control, stored] : row.boxes)
        if (std::string* text = textOf(control, catalogue, state))
            *text = stored;
    state.tolerancePercent = row.RCperct;
    state.toleranceCount = row.RCcount;
    if (row.opt36)
        return;
    const auto marks = parityMarks(catalogue, state);
    for (std::size_t mark = 0; mark < marks.size(); ++mark)
        if (marks[mark])
            *marks[mark] = row.parities[mark];
}

SettingRow readSetting(const sql::Recordset& record, workspace::FilterFamily family) {
    const auto text = [&](std::string_view column) { return sql::toText(record.field(column)); };
    SettingRow row{.opt36 = sql::toInteger(record.field("opt36")) != 0,
                   .boxes = {},
                   .RCperct = text("RCperct"),
                   .RCcount = text("RCcount")};
    forEachBox(row.opt36, [&](const workspace::BoxColumn& column) {
        if (const std::string_view name = nameIn(family, column); !name.empty())
            row.boxes.emplace(column.box, text(name));
    });
    for (std::size_t mark = 0; !row.opt36 && mark < row.parities.size(); ++mark)
        row.parities[mark] = sql::toInteger(record.field(workspace::kPositionFlags[mark])) != 0;
    return row;
}

bool setQuietly(sql::Recordset& record, std::string_view column, sql::Value value) {
    return quietly([&] { record.set(column, std::move(value)); });
}

void writeSetting(sql::Recordset& record, const SettingRow& row, workspace::FilterFamily family) {
    const auto set = [&](std::string_view column, sql::Value value) { setQuietly(record, column, std::move(value)); };
    const auto truth = [](bool on) { return std::int64_t{on ? -1 : 0}; };
    set("opt36", truth(row.opt36));
    forEachBox(row.opt36, [&](const workspace::BoxColumn& column) {
        const auto stored = row.boxes.find(column.box);
        if (stored != row.boxes.end() && !nameIn(family, column).empty())
            set(nameIn(family, column), stored->second);
    });
    for (std::size_t mark = 0; !row.opt36 && mark < row.parities.size(); ++mark)
        set(workspace::kPositionFlags[mark], truth(row.parities[mark]));
    set("RCperct", row.RCperct);
    set("RCcount", row.RCcount);
}

} // namespace filter
