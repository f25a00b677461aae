// A step that fails behind a keeping: every file is where it was, and nobody is told of anything kept.
#include <fstream>

#include <gtest/gtest.h>

#include "scratch_folder.h"
#include "workspace/keeping.h"

using namespace Qt::StringLiterals;

namespace {

TEST(KeepingPutBack, LeavesNoTraceOfWhatWasMovedAndCopied) {
    const ScratchFolder folder;
    const std::filesystem::path moved = folder.path() / "张三.mdb";
    const std::filesystem::path copied = folder.path() / "号码.TXT";
    std::ofstream(moved) << "history";
    std::ofstream(copied) << "text";
    std::filesystem::path kept;
    {
        workspace::Keeping keeping(folder.path(), u"没有发生"_s);
        keeping.move(moved);
        keeping.copy(copied);
        kept = keeping.folder();
        EXPECT_TRUE(std::filesystem::exists(kept / copied.filename()));
        keeping.putBack();
        EXPECT_TRUE(keeping.isEmpty());
    }
    EXPECT_TRUE(std::filesystem::exists(moved));
    EXPECT_TRUE(std::filesystem::exists(copied));
    EXPECT_FALSE(std::filesystem::exists(kept));
    EXPECT_TRUE(workspace::unreadKeptFiles(folder.path()).empty());
}

} // namespace
