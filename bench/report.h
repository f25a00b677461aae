// The Markdown table of the figures.
#pragma once

#include "figures.h"

namespace bench {

/// What a figure belongs to; the name of a benchmark is its operation, a slash and one of these.
inline constexpr const char* kSqlite = "sqlite";
inline constexpr const char* kColumn = "column";
inline constexpr const char* kFull = "full";

/// Prints the table to stdout when the run is over.
class TableReporter : public FigureReporter {
  public:
    void Finalize() override;
};

} // namespace bench
