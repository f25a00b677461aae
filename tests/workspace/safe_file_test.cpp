// What stands under a name, whatever it is.
#include "workspace/safe_file.h"

#include <fstream>

#include <gtest/gtest.h>

#include "scratch_folder.h"

namespace {

TEST(SafeFile, SomethingOfAnyKindIsThereEvenALinkThatLeadsNowhere) {
    const ScratchFolder folder;
    const auto named = [&](const char* name) { return folder.path() / name; };
    std::ofstream(named("empty"));
    std::filesystem::create_directory(named("folder"));
    std::filesystem::create_symlink(named("gone"), named("link"));
    for (const char* name : {"empty", "folder", "link"})
        EXPECT_TRUE(workspace::isThere(named(name))) << name;
    EXPECT_FALSE(workspace::isThere(named("gone")));
    EXPECT_FALSE(workspace::isThere(named("empty") / "below")) << "a file has nothing below it";
}

} // namespace
