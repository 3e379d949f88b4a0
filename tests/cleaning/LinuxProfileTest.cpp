#include "cleaning/ScanTable.h"
#include "profiles/Profile.h"
#include "profiles/linux/LinuxTables.h"
#include "support/Sandbox.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;

class LinuxProfileTest : public ::testing::Test {
  protected:
    std::filesystem::path home(std::string_view path) const { return mac.home() / path; }

    Profile profile(const UserEnvironment& environment = {}) const {
        return Profiles::linux(disk.root(), mac.home(), environment);
    }

    std::vector<CleanItem> scan(std::set<std::string> running = {}) const {
        const Profile made = profile();
        const JunkScanner::Context context{
            .root = disk.root(),
            .home = made.places.home(),
            .safety = made.safetyGuard(PreferenceValues(), {}),
            .running = {.bundleIDs = std::move(running), .names = {}, .files = {}},
            .hasFullDiskAccess = true,
            .now = testing::now()};
        return testing::systemScan(made, context, JunkScanner::systemCategories());
    }

    std::string verdict(std::string_view path) const {
        const auto answer = profile().safetyGuard(PreferenceValues(), {}).check(home(path));
        return answer.isAllowed() ? "allowed" : answer.reason();
    }

    Sandbox disk;
    sample::SampleMac mac{disk.root()};  // its disk alone: what a Mac is lies in the profile
};

TEST_F(LinuxProfileTest, GuardsWhatAHomeHoldsDear) {
    const std::pair<const char*, const char*> cases[] = {
        {".cache", "system folder"},
        {".local/share/keyrings/login.keyring", "personal data"},
        {".aws/credentials", "personal data"},
        {".aws/cli/cache", "allowed"},
        {".bash_history", "personal data"},
        {".config/google-chrome/Default/History", "personal data"},
        {".config/google-chrome/Default/Service Worker/CacheStorage", "allowed"},
        {".config/google-chrome/Default/Service Worker", "personal data"},
        {".config/google-chrome/GrShaderCache/x", "allowed"},
        {".config/google-chrome/Default/Extensions/a/Cache", "personal data"},
        {".config/BraveSoftware", "system folder"},
        {"Pictures/Cache/a.jpg", "personal data"},
        {"snap/firefox/common", "system folder"},
        {"Documents/a.txt", "allowed"},
        {".config/mozilla/firefox/k3/cookies.sqlite", "personal data"},
        {"snap/firefox/common/.config/mozilla", "personal data"},
        {".var/app/org.mozilla.firefox/config/mozilla/firefox", "personal data"},
        {".cache/mozilla/firefox/k3", "allowed"},
        {".config/chromium/BrowserMetrics", "allowed"},
        {".config/chromium/BrowserMetrics-spare.pma", "allowed"},
        {".var/app/com.google.Chrome/config/google-chrome/Default/Login Data", "personal data"},
        {".var/app/com.google.Chrome/config/google-chrome/Default/GPUCache", "allowed"},
        {".config/discord/Local Storage/leveldb", "personal data"},
        {".config/discord/Cookies", "personal data"},
        {".config/discord/Cache", "allowed"},
        {".config/discord", "allowed"},
        {".config/Signal/sql/db.sqlite", "personal data"},
        {".config/gh/hosts.yml", "personal data"},
        {".claude/.credentials.json", "personal data"},
        {".codex/auth.json", "personal data"},
        {".ollama/id_ed25519", "personal data"},
        {".cache/huggingface/token", "personal data"},
        {".cache/rclone", "system folder"},
        {".cache/rclone/vfs/a", "personal data"},
        {"Documents/deep/Passwords.kdbx", "personal data"},
        {"Documents/kdbx", "allowed"},
    };
    for (const auto& [path, expected] : cases) EXPECT_EQ(verdict(path), expected) << path;
}

TEST_F(LinuxProfileTest, FollowsTheUsersOwnNamesForFolders) {
    disk.text("Users/ana/.config/user-dirs.dirs",
              "# comment\n"
              "XDG_DOWNLOAD_DIR=\"$HOME/T\xc3\xa9l\xc3\xa9"
              "chargements\"\n"
              "XDG_PICTURES_DIR=\"$HOME/Medien/Bilder \\\"alt\\\"\"\n"
              "XDG_MUSIC_DIR=\"$HOME/\"\n"
              "XDG_VIDEOS_DIR=\"/mnt/films\"\n"
              "XDG_DOCUMENTS_DIR=\"$HOME/../bob/Documents\"\n"
              "XDG_BROKEN\nXDG_DESKTOP_DIR=\"\n");
    const auto part = disk.file(
        "Users/ana/T\xc3\xa9l\xc3\xa9"
        "chargements/film.part",
        70000);
    Sandbox::date(part, testing::daysAgo(3));
    const auto found = scan();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].url, part);
    EXPECT_EQ(verdict("T\xc3\xa9l\xc3\xa9"
                      "chargements"),
              "system folder");
    EXPECT_EQ(verdict("Medien"), "system folder");
    EXPECT_EQ(verdict("Medien/Bilder \"alt\"/x.jpg"), "personal data");
    EXPECT_EQ(verdict("Music/x.ogg"), "personal data")
        << "a folder that points at the home keeps its English name";
    EXPECT_EQ(profile().places.documents(), home("Documents"));
    EXPECT_EQ(profile().places.desktop(), home("Desktop"));
}

TEST_F(LinuxProfileTest, TheEnvironmentMovesFoldersWithinTheHomeOnly) {
    const UserEnvironment inside{.configHome = home("cfg"), .dataHome = home("data/")};
    EXPECT_EQ(profile(inside).places.trash(), home("data/Trash"));
    EXPECT_EQ(profile(inside).places.preferences(), home("cfg/Tavrel/preferences.plist"));
    const UserEnvironment outside{.configHome = "relative", .dataHome = "/elsewhere"};
    EXPECT_EQ(profile(outside).places.trash(), home(".local/share/Trash"));
    EXPECT_EQ(profile(outside).places.preferences(), home(".config/Tavrel/preferences.plist"));
}

TEST_F(LinuxProfileTest, OnAnExaminedDiskNoCommandIsOffered) {
    testing::expectScan(mac, R"(
        /var/log/syslog.2.gz          | 100 | 30 | safe
        /var/log/syslog               | 100 | 30
        /var/log/apt/history.log.1    | 100 | 30 | safe
        /var/log/private.gz/          | 100 | 30)",
                        [&] { return scan(); });
    EXPECT_TRUE(profile().scan.system.commands.empty());
    EXPECT_FALSE(Profiles::linux("/", home("")).scan.system.commands.empty());
}

TEST_F(LinuxProfileTest, ReadsTheTrashesOfMountedVolumes) {
    const auto shared = disk.folder("a b/.Trash/1000/files");
    const auto own = disk.folder("c/.Trash-1000/files");
    disk.folder("d/.Trash-1001/files");
    disk.folder("net/.Trash-1000/files");
    disk.link("e/.Trash-1000", disk.path("c/.Trash-1000"));
    const std::string root = disk.root().native();
    const std::string mounts = "/dev/a " + root + "/a\\040b ext4 rw 0 0\n/dev/c " + root +
                               "/c vfat rw 0 0\n/dev/d " + root + "/d ext4 rw 0 0\nserver:/x " + root +
                               "/net nfs4 rw 0 0\n/dev/e " + root + "/e ext4 rw 0 0\nportal " + root +
                               "/net fuse.portal rw 0 0\nbroken\n";
    EXPECT_EQ(Linux::volumeTrashes(mounts, 1000, "/none"), (std::vector{shared, own}));

    disk.file("c/.Trash-1000/files/thing", 10);
    const auto guard = profile().safetyGuard(PreferenceValues(), {own});
    const auto items = SpecialScanners::trashed({own}, 30, guard, testing::now());
    ASSERT_EQ(items.size(), 1U);
    EXPECT_TRUE(items[0].permanent);
}

}  // namespace
}  // namespace tavrel
