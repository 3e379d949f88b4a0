#include "platform/posix/NoCommands.h"
#include "profiles/Profile.h"
#include "profiles/linux/LinuxTables.h"
#include "support/SampleMac.h"
#include "support/Sandbox.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::itemAt;
using testing::Sandbox;

class LinuxProfileTest : public ::testing::Test {
  protected:
    std::filesystem::path home(std::string_view path) const { return disk.path("home/ana") / path; }

    std::filesystem::path cache(const std::string& path, double daysOld = 5) const {
        disk.file("home/ana/" + path + "/data", 70000);
        Sandbox::date(home(path), testing::daysAgo(daysOld));
        return home(path);
    }

    Profile profile(const UserEnvironment& environment = {}) const {
        return Profiles::linux(disk.root(), disk.folder("home/ana"), environment);
    }

    std::vector<CleanItem> scan(std::set<std::string> running = {}) const {
        NoCommands noTools;
        const testing::NoNames noNames;
        const Profile made = profile();
        const JunkScanner::Context context{.root = disk.root(),
                                           .home = made.places.home(),
                                           .safety = made.safetyGuard(PreferenceValues(), {}),
                                           .runningBundleIDs = std::move(running),
                                           .hasFullDiskAccess = true,
                                           .now = testing::now()};
        return JunkScanner(made.scan, noTools, noNames)
            .scan(JunkScanner::systemCategories(), context, [](CleanCategory) {});
    }

    std::string verdict(std::string_view path) const {
        const auto answer = profile().safetyGuard(PreferenceValues(), {}).check(home(path));
        return answer.isAllowed() ? "allowed" : answer.reason();
    }

    Sandbox disk;
};

TEST_F(LinuxProfileTest, FindsWhatAHomeAccumulates) {
    const auto thumbnails = cache(".cache/thumbnails");
    const auto tool = cache(".cache/some-tool");
    const auto young = cache(".cache/young-tool", 0.1);
    const auto live = cache(".cache/live-tool");
    const auto firefox = cache(".cache/mozilla/firefox/x.default");
    const auto flatpak = cache(".var/app/org.gimp.GIMP/cache");
    const auto snap = cache("snap/spotify/common/.cache");
    const auto electron = cache(".config/Signal/Cache");
    const auto trashed = cache(".local/share/Trash/files/thing");
    const auto shaders = cache(".cache/mesa_shader_cache");
    cache(".cache/huggingface/hub");
    cache(".config/google-chrome/Default/History");
    const auto items = scan({"live-tool", "firefox"});

    EXPECT_EQ(items.size(), 10U);
    for (const auto& path : {thumbnails, tool, flatpak, snap, electron, trashed}) {
        ASSERT_NE(itemAt(items, path), nullptr) << path;
        EXPECT_EQ(itemAt(items, path)->risk, Risk::safe) << path;
    }
    for (const auto& path : {young, live, firefox, shaders}) {
        ASSERT_NE(itemAt(items, path), nullptr) << path;
        EXPECT_EQ(itemAt(items, path)->risk, Risk::review) << path;
    }
}

TEST_F(LinuxProfileTest, KeepsTheNewestCacheOfEachIde) {
    const auto older = cache(".cache/JetBrains/IntelliJIdea2023.1", 300);
    const auto newest = cache(".cache/JetBrains/IntelliJIdea2024.1", 30);
    const auto other = cache(".cache/JetBrains/PyCharm2022.1", 500);
    const auto items = scan();
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(itemAt(items, older)->risk, Risk::safe);
    EXPECT_EQ(itemAt(items, newest)->risk, Risk::review);
    EXPECT_EQ(itemAt(items, other)->risk, Risk::review);
}

TEST_F(LinuxProfileTest, GuardsWhatAHomeHoldsDear) {
    const std::pair<const char*, const char*> cases[] = {
        {".cache", "system folder"},
        {".local/share", "system folder"},
        {".local/share/keyrings/login.keyring", "personal data"},
        {".mozilla/firefox/x", "personal data"},
        {".aws", "system folder"},
        {".aws/credentials", "personal data"},
        {".aws/cli/cache", "allowed"},
        {".config/gcloud", "system folder"},
        {".docker", "system folder"},
        {".docker/config.json", "personal data"},
        {".bash_history", "personal data"},
        {".config/google-chrome", "personal data"},
        {".config/google-chrome/Default", "personal data"},
        {".config/google-chrome/Default/History", "personal data"},
        {".config/google-chrome/Default/Code Cache", "allowed"},
        {".config/google-chrome/Default/Service Worker/CacheStorage", "allowed"},
        {".config/google-chrome/Default/Service Worker", "personal data"},
        {".config/google-chrome/GrShaderCache/x", "allowed"},
        {".config/google-chrome/Default/Extensions/a/Cache", "personal data"},
        {".config/BraveSoftware", "system folder"},
        {".config/Tavrel/preferences.plist", "personal data"},
        {"Pictures/Cache/a.jpg", "personal data"},
        {".ssh/Cache", "personal data"},
        {"snap/firefox/common", "system folder"},
        {"Documents/a.txt", "allowed"},
        {"Templates", "system folder"},
    };
    for (const auto& [path, expected] : cases) EXPECT_EQ(verdict(path), expected) << path;
}

TEST_F(LinuxProfileTest, FollowsTheUsersOwnNamesForFolders) {
    disk.text("home/ana/.config/user-dirs.dirs",
              "# comment\n"
              "XDG_DOWNLOAD_DIR=\"$HOME/T\xc3\xa9l\xc3\xa9"
              "chargements\"\n"
              "XDG_PICTURES_DIR=\"$HOME/Medien/Bilder \\\"alt\\\"\"\n"
              "XDG_MUSIC_DIR=\"$HOME/\"\n"
              "XDG_VIDEOS_DIR=\"/mnt/films\"\n"
              "XDG_DOCUMENTS_DIR=\"$HOME/../bob/Documents\"\n"
              "XDG_BROKEN\nXDG_DESKTOP_DIR=\"\n");
    const auto part = disk.file(
        "home/ana/T\xc3\xa9l\xc3\xa9"
        "chargements/film.part",
        70000);
    Sandbox::date(part, testing::daysAgo(3));
    EXPECT_NE(itemAt(scan(), part), nullptr);
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
    const auto rotated = disk.file("var/log/syslog.2.gz", 100);
    const auto live = disk.file("var/log/syslog", 100);
    const auto inApt = disk.file("var/log/apt/history.log.1", 100);
    disk.file("var/log/private.gz/inside", 100);
    for (const auto& path : {rotated, live, inApt, disk.path("var/log/private.gz")}) {
        Sandbox::date(path, testing::daysAgo(30));
    }
    const auto items = scan();
    EXPECT_EQ(items.size(), 2U);
    EXPECT_NE(itemAt(items, rotated), nullptr);
    EXPECT_NE(itemAt(items, inApt), nullptr);
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
                               "/net nfs4 rw 0 0\n/dev/e " + root + "/e ext4 rw 0 0\nbroken\n";
    EXPECT_EQ(Linux::volumeTrashes(mounts, 1000, "/none"), (std::vector{shared, own}));

    disk.file("c/.Trash-1000/files/thing", 10);
    const auto guard = profile().safetyGuard(PreferenceValues(), {own});
    const auto items = SpecialScanners::volumeTrashes({own}, guard);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_TRUE(items[0].permanent);
}

}  // namespace
}  // namespace tavrel
