#include "core/Paths.h"

#include <string>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(PathsTest, StandardizesLexically) {
    const std::pair<const char*, const char*> cases[] = {
        {"/a/b/", "/a/b"}, {"/a//b/./c", "/a/b/c"}, {"/a/../b", "/b"}, {"/../..", "/"},
        {"/", "/"},        {"a/../..", ".."},       {"./a", "a"},      {"", ""},
        {"/a/..", "/"},    {"/...", "/..."},
    };
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(Paths::standardized(path).native(), expected) << path;
}

TEST(PathsTest, InsideIsByWholeComponents) {
    EXPECT_TRUE(Paths::isInside("/a/b", "/a/b"));
    EXPECT_TRUE(Paths::isInside("/a/b/c", "/a/b"));
    EXPECT_TRUE(Paths::isInside("/a", "/"));
    EXPECT_FALSE(Paths::isInside("/a/bc", "/a/b"));
    EXPECT_FALSE(Paths::isInside("/a", "/a/b"));
}

TEST(PathsTest, TakesNamesApart) {
    const std::pair<const char*, const char*> extensions[] = {
        {"/x/a.tar.gz", "gz"}, {"/x/.hidden", ""}, {"/x/a.", ""},
        {"/x/a", ""},          {"/x.d/a", ""},     {"/x/a.DMG/", "DMG"},
    };
    for (const auto& [path, expected] : extensions) EXPECT_EQ(Paths::extension(path), expected) << path;
    EXPECT_EQ(Paths::name("/a/b/"), "b");
    EXPECT_EQ(Paths::name("/"), "/");
    EXPECT_EQ(Paths::expandingTilde("~/x", "/home/ana"), "/home/ana/x");
    EXPECT_EQ(Paths::expandingTilde("~", "/home/ana"), "/home/ana");
    EXPECT_EQ(Paths::expandingTilde("~bob/x", "/home/ana"), "~bob/x");
}

}  // namespace
}  // namespace tavrel
