#include "filter/row_states.h"

#include "filter/quiet.h"

namespace filter {
namespace {

std::string lower(std::string name) {
    for (char& letter : name)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return name;
}

int columnOf(const sql::Rows& rows, std::string_view name) {
    for (int column = 0; column < rows.columnCount(); ++column)
        if (lower(rows.columnName(column)) == name)
            return column;
    return -1;
}

} // namespace

void RowStates::run(std::string_view afterTable) const {
    sql::passOver(m_database, update() + std::string(afterTable));
}

void RowStates::resetAll() const {
    run("[unslt]=false  , [Fliter] = \"\"");
}

void RowStates::restoreLast() const {
    run("[unslt]=false  , [Fliter] = \"\" WHERE [preunslt]=false AND [unslt] = true");
}

void RowStates::invertAll() const {
    run("[preunslt]=[unslt]");
    run("[unslt]=not [unslt]   , [Fliter] = \"全部反选-\" & [Fliter]");
}

void RowStates::invertLast() const {
    run("[tmpunslt]=[preunslt]");
    run("[preunslt]=[unslt]");
    run("[unslt]=NOT [unslt]   , [Fliter] = \"上次反选-\" & [Fliter]  WHERE [tmpunslt]=false");
}

Toggled RowStates::toggle(const std::string& idx) const {
    run("[preunslt]=[unslt]");
    const sql::Rows row = queryQuietly(m_database, "SELECT * FROM [" + m_table + "] WHERE [idx] = " + idx);
    const int state = row.count() > 0 ? columnOf(row, "unslt") : -1;
    if (state < 0)
        return Toggled::NotFound;
    if (row.integerAt(0, state) != 0) {
        run("[unslt]=FALSE , [Fliter] = \"\" WHERE [unslt] = TRUE AND [idx]= " + idx);
        return Toggled::PutBack;
    }
    run("[unslt]=TRUE , [Fliter] = \"手工删除\" WHERE [unslt] = FALSE AND [idx]= " + idx);
    return Toggled::TakenOut;
}

} // namespace filter
