// A combination table in a file of its own, and all that it holds as text: for tests that compare it before and
// after.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "sql/database.h"

class CombinationFixture {
  protected:
    explicit CombinationFixture(const sql::EngineOptions& options = {}) : engine(options) {}

    /// Every column of every row of zuhe, a row a line: "10|1|NULL|和 7|0|".
    std::vector<std::string> everything() {
        const sql::Rows rows = db->query("SELECT * FROM [zuhe]");
        std::vector<std::string> lines;
        for (std::int64_t row = 0; row < rows.count(); ++row) {
            lines.emplace_back();
            for (int column = 0; column < rows.columnCount(); ++column) {
                const sql::Value value = rows.at(row, column);
                lines.back() += (sql::isNull(value) ? "NULL" : sql::toText(value)) + '|';
            }
        }
        return lines;
    }

    /// What was not stored is lost.
    void reopen() {
        db.reset();
        db = engine.open(file);
    }
    std::vector<std::string> everythingInTheFile() {
        reopen();
        return everything();
    }

    ScratchFolder folder;
    const std::filesystem::path file = folder.path() / "filnum.mdb";
    sql::Engine engine;
    std::unique_ptr<sql::Database> db = engine.create(file);
};

/// The same on either executor.
class CombinationsOnEither : public testing::TestWithParam<sql::Executor>, protected CombinationFixture {
  protected:
    CombinationsOnEither() : CombinationFixture({.combinations = GetParam()}) {}
};
