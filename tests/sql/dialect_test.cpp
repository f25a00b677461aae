// Every file of tests/dialect on both executors, under every switch of the runner.
#include <gtest/gtest.h>

#include "sql/slt_support.h"

namespace {

std::vector<std::filesystem::path> caseFiles() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(SSQ_TEST_DATA) / "dialect"))
        if (entry.path().extension() == ".slt")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

class Dialect : public ::testing::TestWithParam<std::filesystem::path> {
  protected:
    void expectHolds(const slt::Options& options) {
        const slt::Outcome outcome = slt::runFile(GetParam(), options);
        EXPECT_GT(outcome.statements, 0);
        for (const std::string& failure : outcome.failures)
            ADD_FAILURE() << GetParam().filename() << " " << failure;
    }
};

TEST_P(Dialect, HoldsOnTheSqliteExecutor) {
    expectHolds({.engine = {.combinations = sql::Executor::Sqlite}});
}
TEST_P(Dialect, HoldsOnTheColumnExecutor) {
    expectHolds({});
}
TEST_P(Dialect, HoldsWithBatchesOfOneRow) {
    expectHolds({.engine = {.batchRows = 1}});
}
TEST_P(Dialect, HoldsWithBatchesOfSevenRows) {
    expectHolds({.engine = {.batchRows = 7}});
}
TEST_P(Dialect, HoldsWithStatementsPrintedAndParsedAgain) {
    expectHolds({.reprint = true});
}
TEST_P(Dialect, HoldsWithTheFileReopenedBetweenStatements) {
    expectHolds({.reopen = true});
}

INSTANTIATE_TEST_SUITE_P(Files, Dialect, ::testing::ValuesIn(caseFiles()),
                         [](const auto& info) { return info.param.stem().string(); });

} // namespace
