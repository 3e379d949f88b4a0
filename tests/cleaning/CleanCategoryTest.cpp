#include "cleaning/CleanCategory.h"
#include "cleaning/CleanItem.h"

#include <set>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(CleanCategoryTest, EveryCategoryComesBackFromItsRawValueAndNothingElseDoes) {
    std::set<std::string_view> seen;
    for (const CleanCategory category : CleanCategories::allCases()) {
        const auto raw = CleanCategories::rawValue(category);
        EXPECT_EQ(CleanCategories::fromRawValue(raw), category);
        EXPECT_TRUE(seen.insert(raw).second);
        EXPECT_FALSE(CleanCategories::title(category).empty());
        EXPECT_FALSE(CleanCategories::summary(category).empty());
        EXPECT_FALSE(CleanCategories::symbol(category).empty());
    }
    EXPECT_EQ(CleanCategories::rawValue(CleanCategory::iosBackups), "iosBackups");
    EXPECT_EQ(CleanCategories::fromRawValue("IosBackups"), std::nullopt);
    EXPECT_EQ(CleanCategories::fromRawValue(""), std::nullopt);
    EXPECT_EQ(CleanCategories::allCases().front(), CleanCategory::systemData);
    EXPECT_EQ(CleanCategories::allCases().back(), CleanCategory::aiModels);
}

TEST(CleanItemTest, IsOneThingByItsPathAndEqualByEverything) {
    const CleanItem item{.url = "/a/b"};
    CleanItem other = item;
    other.note = "different";
    EXPECT_NE(item, other);
    EXPECT_EQ(item.id(), other.id());
    EXPECT_LT(Risk::safe, Risk::review);
    EXPECT_EQ(riskFromRawValue(1), Risk::review);
    EXPECT_EQ(riskFromRawValue(2), std::nullopt);
}

}  // namespace
}  // namespace tavrel
