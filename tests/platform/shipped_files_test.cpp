#include <gtest/gtest.h>

#include "platform/ShippedFiles.h"
#include "support/SheetFixture.h"

namespace zeph {
namespace {

// A folder laid out like an install prefix finds the shared files there; a build tree, beside
// the binary.
TEST(ShippedFolder, PrefersTheInstalledShareFolderOverTheBuildTree) {
    const testing::TempFolder prefix("prefix");
    const std::string bin = prefix.At("bin");
    std::filesystem::create_directories(prefix.At("share/zephalon/stylesheets"));
    EXPECT_EQ(ShippedFolder(bin, ShippedFiles::Stylesheets),
              prefix.At("share/zephalon/stylesheets"));
    EXPECT_EQ(ShippedFolder(bin, ShippedFiles::Documentation), prefix.At("bin/Documentation"));
    EXPECT_EQ(ShippedFolder(bin, ShippedFiles::Rules),
              (prefix.path.parent_path() / "data/rules").string());
}

}  // namespace
}  // namespace zeph
