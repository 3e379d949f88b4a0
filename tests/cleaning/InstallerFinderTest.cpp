#include "cleaning/InstallerFinder.h"
#include "support/SampleMac.h"
#include "support/Sandbox.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::itemAt;

TEST(InstallerFinderTest, FindsInstallersNearTheTopAndJudgesThemByAge) {
    const testing::Sandbox disk;
    const testing::SampleMac mac(disk.root());
    const auto old = mac.file("~/Downloads/Old.dmg", 5000, 10);
    const auto loud = mac.file("~/Downloads/LOUD.DMG", 5000, 10);
    const auto recent = mac.file("~/Downloads/New.pkg", 5000, 1);
    const auto nested = mac.file("~/Documents/a/x.pkg", 5000, 10);
    const auto bundle = mac.folder("~/Desktop/Suite.mpkg", 2, 5000, 10);
    const auto inBundle = mac.file("~/Desktop/Suite.mpkg/inner.pkg", 5000, 10);
    const auto deep = mac.file("~/Documents/a/b/x.pkg", 5000, 10);
    const auto inApp = mac.file("~/Desktop/Some.app/image.dmg", 5000, 10);
    const auto hidden = mac.file("~/Downloads/.hidden.dmg", 5000, 10);
    const auto system = mac.folder("/Applications/Install macOS Sonoma.app", 1, 9000, 0);
    const auto other = mac.folder("/Applications/About macOS.app", 1, 9000, 0);
    testing::Sandbox::date(bundle, testing::daysAgo(10));

    const Profile profile = mac.profile();
    const std::vector roots = {profile.places.downloads(), profile.places.desktop(),
                               profile.places.documents()};
    const auto guard = mac.guard({profile.places.applications()});
    const auto items = InstallerFinder::scan(profile.installers, roots, guard, 7, testing::now());

    EXPECT_EQ(items.size(), 6U);
    for (const auto& path : {old, loud, nested, bundle, system}) {
        ASSERT_NE(itemAt(items, path), nullptr) << path;
        EXPECT_EQ(itemAt(items, path)->risk, Risk::safe) << path;
    }
    ASSERT_NE(itemAt(items, recent), nullptr);
    EXPECT_EQ(itemAt(items, recent)->risk, Risk::review);
    EXPECT_EQ(itemAt(items, recent)->note, "Downloaded recently");
    EXPECT_EQ(itemAt(items, system)->note,
              "macOS installer app; download it again from the App Store if ever needed");
    for (const auto& path : {inBundle, deep, inApp, hidden, other})
        EXPECT_EQ(itemAt(items, path), nullptr) << path;

    const auto homeOnly = InstallerFinder::scan(profile.installers, roots, mac.guard(), 7, testing::now());
    EXPECT_EQ(itemAt(homeOnly, system), nullptr) << "the guard decides";
}

}  // namespace
}  // namespace tavrel
