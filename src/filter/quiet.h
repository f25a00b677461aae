// The filters' way with errors: what the database refuses is passed over, and the next step runs.
//
// Statements go through sql::passOver; this is the same for the calls that are not statements or that give rows.
#pragma once

#include <string_view>

#include "sql/database.h"

namespace filter {

/// Runs `action` and passes over a failure of the database. \return whether it ran to its end
template <class Action> bool quietly(Action action) {
    try {
        action();
        return true;
    } catch (const sql::SqlError&) {
        return false;
    }
}

/// The rows of a SELECT; none when the database refuses it.
inline sql::Rows queryQuietly(sql::Database& database, std::string_view select) {
    sql::Rows rows;
    quietly([&] { rows = database.query(select); });
    return rows;
}

} // namespace filter
