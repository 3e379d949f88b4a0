#include "profiles/Profile.h"

#include <set>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(CatalogTest, ScansSpecialPlacesBeforeTheFoldersThatHoldThem) {
    for (const auto& profile : {Profiles::macos("/", "/Users/ana"), Profiles::linux("/", "/home/ana")}) {
        std::set<std::string> paths;
        for (const CleanRule& rule : profile.scan.rules) {
            EXPECT_TRUE(rule.path.starts_with("~/")) << rule.path;
            EXPECT_TRUE(paths.insert(rule.path).second) << rule.path << " stands twice";
            EXPECT_FALSE(rule.note.empty()) << rule.path;
            EXPECT_EQ(rule.permanent, rule.category == CleanCategory::trash) << rule.path;
            EXPECT_EQ(rule.mode.kind == CleanRule::Mode::Kind::files, !rule.mode.extensions.empty())
                << rule.path;
        }
    }
}

}  // namespace
}  // namespace tavrel
