#include "cleaning/JunkScanner.h"
#include "cleaning/ScanTable.h"
#include "sample/SampleMac.h"
#include "support/Sandbox.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using enum CleanCategory;
using sample::SampleMac;
using testing::Sandbox;

class JunkScannerTest : public ::testing::Test {
  protected:
    [[nodiscard]] std::vector<CleanItem> scan(const std::set<CleanCategory>& categories) const {
        return testing::systemScan(mac.profile(), context, categories);
    }
    void expect(const std::set<CleanCategory>& categories, const std::string& table) const {
        testing::expectScan(mac, table, [&] { return scan(categories); });
    }

    Sandbox disk;
    SampleMac mac{disk.root()};
    JunkScanner::Context context{.root = mac.root(),
                                 .home = mac.home(),
                                 .safety = mac.guard(),
                                 .hasFullDiskAccess = true,
                                 .now = testing::now()};
};

TEST_F(JunkScannerTest, LeavesAChildThatIsOrHoldsAnotherRulesRootToThatRule) {
    expect({userCaches}, R"(
        ~/Library/Caches/com.apple.Safari/ | 70000
        ~/Library/Caches/Google/Chrome/    | 70000
        ~/Library/Caches/Google/Other/     | 70000
        ~/Library/Caches/com.apple.Music/  | 70000 | | review | macOS system cache; rebuilt automatically
        ~/Library/Caches/org.app/          | 70000 | | safe)");
    expect({browsers}, R"(
        ~/Library/Caches/com.apple.Safari | | | safe
        ~/Library/Caches/Google/Chrome    | | | safe)");
}

TEST_F(JunkScannerTest, WhatRunsIsForReviewAndTheProgramsOwnCacheIsNeverOffered) {
    context.running.bundleIDs = {"org.running", "com.apple.dock"};
    context.ownBundleID = "com.quennith.tavrel";
    expect({userCaches, logs}, R"(
        ~/Library/Caches/com.quennith.tavrel/ | 70000
        ~/Library/Caches/org.running/         | 70000 |   | review | App is running; quit it first for a clean result
        ~/Library/Caches/com.apple.dock/      | 70000 |   | review | App is running; quit it first for a clean result
        ~/Library/Logs/org.running/           | 70000 | 3 | review | App is running; quit it first for a clean result)");
}

TEST_F(JunkScannerTest, LooksAtSizesExceptInTheTrashAtAgesAndAtExtensions) {
    expect({userCaches, trash, logs, downloads}, R"(
        ~/Library/Caches/small     | 61440
        ~/Library/Caches/enough    | 65536   |     | safe
        ~/.Trash/note.txt          | 10      |     | safe
        ~/Library/Logs/fresh.log   | 70000   | 0.9
        ~/Library/Logs/old.log     | 70000   | 1.1 | safe
        ~/Downloads/a.crdownload   | 1000000 | 3   | safe
        ~/Downloads/b.CRDOWNLOAD   | 1000000 | 3   | safe
        ~/Downloads/c.part         | 1000000 | 1
        ~/Downloads/.d.part        | 1000000 | 3
        ~/Downloads/e.zip          | 1000000 | 3)");
}

TEST_F(JunkScannerTest, KeepsTheNewestSupportFilesOfEachDevice) {
    expect({xcode}, R"(
        ~/Library/Developer/Xcode/iOS DeviceSupport/iPhone15,2 17.1 (21B74)/ | 70000 | 200 | safe | Older iOS version; Xcode re-copies it if ever needed
        ~/Library/Developer/Xcode/iOS DeviceSupport/iPhone15,2 17.2/ | 70000 | 20 | review | Newest — keep it if your device runs this version
        ~/Library/Developer/Xcode/iOS DeviceSupport/iPad13,4 16.0/ | 70000 | 300 | review | Newest — keep it if your device runs this version)");
}

TEST_F(JunkScannerTest, GivesEachPathOnceLargestFirst) {
    mac.folder("~/Library/Application Support/Slack/Cache", 1, 90000);
    mac.folder("~/Library/Containers/org.app/Data/Library/Caches", 1, 300000);
    mac.folder("~/Library/Caches/one", 1, 200000);
    context.running.names = {"Slack"};
    const auto items = scan(JunkScanner::systemCategories());
    ASSERT_EQ(items.size(), 3U);
    EXPECT_TRUE(std::is_sorted(items.begin(), items.end(), [](auto& a, auto& b) { return a.size > b.size; }));
    EXPECT_EQ(items[0].note, "org.app · rebuilt by the app on demand");
    EXPECT_EQ(items[2].note, "Slack · running; quit it first");
    EXPECT_EQ(items[2].category, appData);

    context.hasFullDiskAccess = false;
    EXPECT_EQ(scan({userCaches}).size(), 1U) << "the system hides containers";
    EXPECT_TRUE(scan({}).empty());
}

TEST_F(JunkScannerTest, SurvivesWhatIsNotAsItShouldBe) {
    mac.file("~/Library/Logs", 70000);  // a file where a folder is expected
    mac.folder("~/elsewhere/big", 1, 70000);
    disk.link("Users/ana/Library/Caches", mac.at("~/elsewhere"));
    EXPECT_TRUE(scan({logs, userCaches}).empty()) << "a linked folder of caches is not looked through";
    std::filesystem::remove(mac.at("~/Library/Caches"));
    mac.folder("~/Library/Caches/two\nlines", 1, 70000);
    mac.folder("~/Library/Caches/latin\xe9", 1, 70000);
    EXPECT_EQ(scan({userCaches}).size(), 2U);
}

TEST_F(JunkScannerTest, OffersNothingThatThePersonBarred) {
    context.safety.protectedPaths = {"~/Library/Caches/keep/inside"};
    expect({userCaches}, R"(
        ~/Library/Caches/keep/inside/ | 70000
        ~/Library/Caches/go/          | 70000 | | safe)");
}

TEST_F(JunkScannerTest, TheSampleMacHoldsSomethingInEveryCategory) {
    mac.fill(0.05);
    std::set<CleanCategory> found;
    for (const CleanItem& item : scan(JunkScanner::systemCategories())) found.insert(item.category);
    EXPECT_EQ(found, JunkScanner::systemCategories());
}

}  // namespace
}  // namespace tavrel
