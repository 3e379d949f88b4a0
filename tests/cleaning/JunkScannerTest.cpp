#include "cleaning/JunkScanner.h"
#include "support/SampleMac.h"
#include "support/Sandbox.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using enum CleanCategory;
using testing::itemAt;
using testing::SampleMac;
using testing::Sandbox;

constexpr const char* running = "App is running; quit it first for a clean result";
constexpr const char* systemCache = "macOS system cache; rebuilt automatically";

class JunkScannerTest : public ::testing::Test {
  protected:
    Sandbox disk;
    SampleMac mac{disk.root()};
};

TEST_F(JunkScannerTest, LeavesAChildThatIsOrHoldsAnotherRulesRootToThatRule) {
    for (const char* name :
         {"com.apple.Safari", "Google/Chrome", "Google/Other", "com.apple.Music", "org.app"}) {
        mac.folder(std::string("~/Library/Caches/") + name, 1, 70000);
    }
    const auto generic = mac.scan({userCaches});
    EXPECT_EQ(generic.size(), 2U);
    EXPECT_EQ(itemAt(generic, mac.at("~/Library/Caches/Google")), nullptr);
    const CleanItem* music = itemAt(generic, mac.at("~/Library/Caches/com.apple.Music"));
    ASSERT_NE(music, nullptr);
    EXPECT_EQ(music->risk, Risk::review);
    EXPECT_EQ(music->note, systemCache);
    const CleanItem* app = itemAt(generic, mac.at("~/Library/Caches/org.app"));
    ASSERT_NE(app, nullptr);
    EXPECT_EQ(app->risk, Risk::safe);

    const auto pages = mac.scan({browsers});
    EXPECT_EQ(pages.size(), 2U);
    EXPECT_NE(itemAt(pages, mac.at("~/Library/Caches/Google/Chrome")), nullptr);
}

TEST_F(JunkScannerTest, WhatRunsIsForReviewAndTheProgramsOwnCacheIsNeverOffered) {
    for (const char* name : {"org.running", "com.apple.dock", "com.quennith.tavrel"}) {
        mac.folder(std::string("~/Library/Caches/") + name, 1, 70000);
    }
    mac.folder("~/Library/Logs/org.running", 1, 70000, 3);
    auto context = mac.context();
    context.runningBundleIDs = {"org.running", "com.apple.dock"};
    context.ownBundleID = "com.quennith.tavrel";
    const auto items = mac.scan({userCaches, logs}, context);
    ASSERT_EQ(items.size(), 3U);
    for (const CleanItem& item : items) {
        EXPECT_EQ(item.risk, Risk::review) << item.url;
        EXPECT_EQ(item.note, running) << item.url;
    }
}

TEST_F(JunkScannerTest, PassesOverWhatIsTooSmallExceptInTheTrash) {
    const auto small = mac.file("~/Library/Caches/small", 61440);
    const auto enough = mac.file("~/Library/Caches/enough", 65536);
    const auto thrown = mac.file("~/.Trash/note.txt", 10);
    const auto items = mac.scan({userCaches, trash});
    EXPECT_EQ(itemAt(items, small), nullptr);
    ASSERT_NE(itemAt(items, enough), nullptr);
    EXPECT_EQ(itemAt(items, enough)->size, 65536);
    ASSERT_NE(itemAt(items, thrown), nullptr);
    EXPECT_TRUE(itemAt(items, thrown)->permanent);
}

TEST_F(JunkScannerTest, LooksAtAgesAndExtensions) {
    const auto freshLog = mac.file("~/Library/Logs/fresh.log", 70000, 0.9);
    const auto oldLog = mac.file("~/Library/Logs/old.log", 70000, 1.1);
    const auto stale = mac.file("~/Downloads/a.crdownload", 1000000, 3);
    const auto loud = mac.file("~/Downloads/b.CRDOWNLOAD", 1000000, 3);
    const auto yesterday = mac.file("~/Downloads/c.part", 1000000, 1);
    const auto hidden = mac.file("~/Downloads/.d.part", 1000000, 3);
    const auto finished = mac.file("~/Downloads/e.zip", 1000000, 3);
    const auto items = mac.scan({logs, downloads});
    for (const auto& path : {oldLog, stale, loud}) EXPECT_NE(itemAt(items, path), nullptr) << path;
    for (const auto& path : {freshLog, yesterday, hidden, finished})
        EXPECT_EQ(itemAt(items, path), nullptr) << path;
}

TEST_F(JunkScannerTest, KeepsTheNewestSupportFilesOfEachDevice) {
    const std::string base = "~/Library/Developer/Xcode/iOS DeviceSupport/";
    const auto older = mac.folder(base + "iPhone15,2 17.1 (21B74)", 1, 70000, 200);
    const auto newer = mac.folder(base + "iPhone15,2 17.2", 1, 70000, 20);
    const auto alone = mac.folder(base + "iPad13,4 16.0", 1, 70000, 300);
    const auto items = mac.scan({xcode});
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(itemAt(items, older)->risk, Risk::safe);
    EXPECT_EQ(itemAt(items, older)->note, "Older iOS version; Xcode re-copies it if ever needed");
    for (const auto& path : {newer, alone}) {
        EXPECT_EQ(itemAt(items, path)->risk, Risk::review) << path;
        EXPECT_EQ(itemAt(items, path)->note, "Newest — keep it if your device runs this version") << path;
    }
}

TEST_F(JunkScannerTest, GivesEachPathOnceLargestFirst) {
    mac.folder("~/Library/Application Support/Slack/Cache", 1, 90000);
    mac.folder("~/Library/Containers/org.app/Data/Library/Caches", 1, 300000);
    mac.folder("~/Library/Caches/one", 1, 200000);
    auto context = mac.context();
    context.runningNames = {"Slack"};
    const auto items = mac.scan(JunkScanner::systemCategories(), context);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_TRUE(std::is_sorted(items.begin(), items.end(), [](auto& a, auto& b) { return a.size > b.size; }));
    EXPECT_EQ(items[0].note, "org.app · rebuilt by the app on demand");
    EXPECT_EQ(items[2].note, "Slack · running; quit it first");
    EXPECT_EQ(items[2].category, appData);

    context.hasFullDiskAccess = false;
    EXPECT_EQ(mac.scan({userCaches}, context).size(), 1U) << "the system hides containers";
    EXPECT_TRUE(mac.scan({}, context).empty());
}

TEST_F(JunkScannerTest, SurvivesWhatIsNotAsItShouldBe) {
    mac.file("~/Library/Logs", 70000);  // a file where a folder is expected
    mac.folder("~/elsewhere/big", 1, 70000);
    disk.link("Users/ana/Library/Caches", mac.at("~/elsewhere"));
    EXPECT_TRUE(mac.scan({logs, userCaches}).empty()) << "a linked folder of caches is not looked through";
    std::filesystem::remove(mac.at("~/Library/Caches"));
    mac.folder("~/Library/Caches/two\nlines", 1, 70000);
    mac.folder("~/Library/Caches/latin\xe9", 1, 70000);
    EXPECT_EQ(mac.scan({userCaches}).size(), 2U);
}

TEST_F(JunkScannerTest, OffersNothingThatThePersonBarred) {
    mac.folder("~/Library/Caches/keep/inside", 1, 70000);
    mac.folder("~/Library/Caches/go", 1, 70000);
    auto context = mac.context();
    context.safety.protectedPaths = {"~/Library/Caches/keep/inside"};
    const auto items = mac.scan({userCaches}, context);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].url, mac.at("~/Library/Caches/go"));
}

TEST(SampleMacTest, TheFilledDiskHoldsSomethingInEveryCategoryOfAScan) {
    const Sandbox disk;
    const SampleMac mac(disk.root());
    mac.fill(0.05);
    const auto items = mac.scan(JunkScanner::systemCategories());
    for (const CleanCategory category : JunkScanner::systemCategories()) {
        EXPECT_TRUE(std::any_of(items.begin(), items.end(), [&](auto& item) {
            return item.category == category;
        })) << CleanCategories::rawValue(category);
    }
}

}  // namespace
}  // namespace tavrel
