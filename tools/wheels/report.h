// The sizes of all stored wheels beside what is known of them, proven, as text for people.
#pragma once

#include <map>
#include <ostream>

#include "wheels/published.h"
#include "wheels/store.h"

namespace wheels {

struct Verdict {
    selection::WheelTable table;
    std::size_t rows = 0;       ///< 0: not shipped
    std::int64_t lower = 1;     ///< no wheel has fewer rows
    std::int64_t published = 0; ///< best published size; 0: none
    PositionSet uncovered = 0;  ///< the first subset that the rows fail, 0 when proven
    bool proven() const { return uncovered == 0; }
    /// It has rows, and a size to compare them with is published. The next two only then.
    bool isCompared() const;
    bool isReached() const; ///< not above the published size by more than the allowance
    /// Rows above the published size, in percent; below 0 for a better one.
    double excess() const;
};

/// Proves every table of every family. A table without a wheel is proven and has no rows.
std::vector<Verdict> judge(const WheelStore& store, const std::map<WheelProblem, Published>& published);

/// Columns of plain text, a line a table.
void printVerdicts(std::ostream& out, const std::vector<Verdict>& verdicts);

/// One table of Markdown a family, and before them how many tables stand where.
void writeMarkdown(std::ostream& out, const std::vector<Verdict>& verdicts);

} // namespace wheels
