#include "cleaning/InstallerFinder.h"
#include "cleaning/ScanTable.h"
#include "support/Sandbox.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(InstallerFinderTest, FindsInstallersNearTheTopAndJudgesThemByAge) {
    const testing::Sandbox disk;
    const sample::SampleMac mac(disk.root());
    const Profile profile = mac.profile();
    const std::vector roots = {profile.places.downloads(), profile.places.desktop(),
                               profile.places.documents()};
    const auto scan = [&](const SafetyGuard& guard) {
        return InstallerFinder::scan(profile.installers, roots, guard, testing::NoApplications(), 7,
                                     testing::now());
    };
    const char* system = R"(
        /Applications/Install macOS Sonoma.app/ | 9000 | 0 | safe | macOS installer app; download it again from the App Store if ever needed
        /Applications/About macOS.app/          | 9000)";
    testing::expectScan(mac, system, [&] { return scan(mac.guard({profile.places.applications()})); });
    // Without the further root the guard refuses the one in the applications folder.
    testing::expectScan(mac, R"(
        ~/Downloads/Old.dmg            | 5000 | 10 | safe
        ~/Downloads/LOUD.DMG           | 5000 | 10 | safe
        ~/Downloads/New.pkg            | 5000 | 1  | review | Downloaded recently
        ~/Downloads/.hidden.dmg        | 5000 | 10
        ~/Documents/a/x.pkg            | 5000 | 10 | safe
        ~/Documents/a/b/x.pkg          | 5000 | 10
        ~/Desktop/Suite.mpkg/inner.pkg | 5000 | 10
        ~/Desktop/Suite.mpkg/          | 5000 | 10 | safe
        ~/Desktop/Some.app/image.dmg   | 5000 | 10)",
                        [&] { return scan(mac.guard()); });
}

}  // namespace
}  // namespace tavrel
