// Statement cases as text: reads the files of tests/dialect and runs them.
//
// A file is blocks apart by empty lines:
//   # data: TABLE ROW | ROW …        rows of a combination table; 01 02 03 04 05 06+07 is six reds and a blue
//   statement ok                     the next line runs
//   statement error NUMBER           the next line fails with this engine error number
//   query TYPES [rowsort] [label]    the next line's rows follow after ----; a letter a column: I whole, R real, T
//   text
// A value of a row is Null as NULL, an empty text as (empty), a real number with six decimals at most.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "sql/database.h"

namespace slt {

struct Options {
    sql::EngineOptions engine = {};
    bool reopen = false;  ///< the file is closed and opened again between statements
    bool reprint = false; ///< each statement is parsed, printed and run from its print
};

struct Outcome {
    int statements = 0;
    std::vector<std::string> failures; ///< line and what differs
};

Outcome runFile(const std::filesystem::path& file, const Options& options);

/// Makes a combination table with its usual columns and fills it, as the data line of a file does.
void makeBets(sql::Database& db, const std::string& table, const std::vector<std::vector<int>>& bets);

/// One value as the files write it.
std::string shown(const sql::Value& value);

} // namespace slt
