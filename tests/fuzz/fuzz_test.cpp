// Replays the corpus of every fuzzer: each input is one that has taught us something, or a start for the fuzzer.
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "fuzz/small_databases.h"
#include "fuzz/targets.h"

namespace {

class Corpus : public ::testing::TestWithParam<fuzz::Target> {};

TEST_P(Corpus, BreaksNoPromise) {
    int inputs = 0;
    const std::filesystem::path folder = std::filesystem::path(SSQ_TEST_DATA) / "fuzz" / "corpus" / GetParam().name;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        SCOPED_TRACE(entry.path().filename());
        EXPECT_NO_THROW(GetParam().run(fuzz::readFile(entry.path())));
        ++inputs;
    }
    EXPECT_GE(inputs, 10);
}

INSTANTIATE_TEST_SUITE_P(All, Corpus, ::testing::ValuesIn(fuzz::kTargets),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
