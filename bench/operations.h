// The operations that are measured: one row each, with what must come out and what the user is promised.
//
// prepare() is not timed; work() is, and gives a count that must be expected(). A limit is a line of the design's
// table of the user's time; 0 where it has none. To measure one more operation, add a row.
#pragma once

#include <span>

#include "rule_table.h"

namespace bench {

struct Operation {
    const char* name;
    void (*prepare)(RuleTable&);
    std::int64_t (*work)(RuleTable&);
    std::int64_t (*expected)(const RuleTable&);
    double limitOneBlue = 0; ///< ms, on 1,107,568 rows
    double limitFull = 0;    ///< ms, on 17,721,088 rows
    bool onSqlite = true;    ///< not where the statements are those of many other rows, and take minutes
    /// Seconds on the sqlite executor where work() would take hours there: measured on a part, and scaled.
    double (*sqliteSeconds)(RuleTable&) = nullptr;
};

std::span<const Operation> operations();

/// Throws std::runtime_error when a count is wrong.
void require(const char* what, std::int64_t got, std::int64_t expected);

} // namespace bench
