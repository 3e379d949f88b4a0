#include "disk/FileSizer.h"
#include "support/Sandbox.h"

#include <gtest/gtest.h>

namespace tavrel::testing {
namespace {

TEST(FileSizer, CountsContentsAndEveryNameOfThem) {
    const Sandbox sandbox;
    const auto file = sandbox.file("folder/deep/file", 10'000);
    const auto hidden = sandbox.file("folder/.hidden", 5000);
    std::filesystem::create_hard_link(file, sandbox.path("folder/again"));
    sandbox.link("folder/to-itself", ".");
    EXPECT_EQ(FileSizer::size(sandbox.path("folder")), 2 * allocated(file) + allocated(hidden));
    EXPECT_EQ(FileSizer::size(file), allocated(file));
}

TEST(FileSizer, FindsNothingBehindALink) {
    const Sandbox sandbox;
    const auto file = sandbox.file("folder/file", 10'000);
    EXPECT_EQ(FileSizer::size(sandbox.link("to-file", file)), 0);
    const auto toFolder = sandbox.link("to-folder", "folder");
    EXPECT_EQ(FileSizer::size(toFolder), 0);
    EXPECT_EQ(FileSizer::size(toFolder.native() + "/"), 0);
    EXPECT_EQ(FileSizer::size(sandbox.path("absent")), 0);
}

}  // namespace
}  // namespace tavrel::testing
