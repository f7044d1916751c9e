#include "platform/Files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/SheetFixture.h"

using namespace zeph;
namespace fs = std::filesystem;

TEST(WriteFileAtomically, ReplacesTheFileWholeAndLeavesNoTemporaryBehind) {
    const zeph::testing::TempFolder temporary("atomic");
    const fs::path& folder = temporary.path;
    const fs::path previous = fs::current_path();
    fs::current_path(folder);
    // A bare file name is written in the working folder.
    EXPECT_TRUE(WriteFileAtomically("prefs.xml", "old"));
    EXPECT_TRUE(WriteFileAtomically("prefs.xml", "new\n"));
    fs::current_path(previous);
    EXPECT_EQ(ReadWholeFile((folder / "prefs.xml").string()), "new\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
    EXPECT_FALSE(WriteFileAtomically((folder / "missing" / "x.xml").string(), "x"));
    EXPECT_FALSE(WriteFileAtomically(folder.string(), "a folder is not replaced"));
}
