#include "cleaning/SafetyGuard.h"
#include "sample/SampleMac.h"
#include "support/Sandbox.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using sample::SampleMac;
using testing::Sandbox;

/// A verdict in one word: "allowed", or the reason.
std::string verdict(const SafetyGuard& guard, const std::filesystem::path& path) {
    const auto answer = guard.check(path);
    return answer.isAllowed() ? "allowed" : answer.reason();
}

constexpr const char* allowed = "allowed";
constexpr const char* notAbsolute = "not an absolute file path";
constexpr const char* outside = "outside the folders Tavrel cleans";
constexpr const char* throughLink = "reached through a symbolic link";
constexpr const char* systemFolder = "system folder";
constexpr const char* personalData = "personal data";
constexpr const char* barred = "protected in Settings";

struct Case {
    std::string path;
    std::string expected;
};

class SafetyGuardTest : public ::testing::Test {
  protected:
    void expect(const SafetyGuard& guard, const std::vector<Case>& cases) const {
        for (const auto& [path, expected] : cases) {
            const bool onDisk = path.starts_with('~') || path.starts_with('/');
            const std::filesystem::path full = onDisk ? mac.at(path) : std::filesystem::path(path);
            EXPECT_EQ(verdict(guard, full), expected) << path;
        }
    }

    Sandbox disk;
    SampleMac mac{disk.root()};
};

TEST_F(SafetyGuardTest, KeepsTheFrameOfTheHomeAndWhatIsPersonal) {
    expect(mac.guard(), {
                            {"~/", systemFolder},
                            {"~/Library/Caches", systemFolder},
                            {"~/Library/Caches/", systemFolder},
                            {"~/Library/Caches/x", allowed},
                            {"~/Library/Caches/../Caches", systemFolder},
                            {"~/.ssh", systemFolder},
                            {"~/.ssh/id", personalData},
                            {"~/Pictures", systemFolder},
                            {"~/Pictures/a/b.heic", personalData},
                            {"~/Documents", systemFolder},
                            {"~/Documents/a.txt", allowed},
                            {"~/Library/Mobile Documents", personalData},
                            {"~/Library/Mobile Documents/x", personalData},
                            {"~/Library/Mobile Documents 2", allowed},
                            {"~/Library/Application Support/com.apple.TCC/TCC.db", personalData},
                            {"~/no/such/folder/file", allowed},
                        });
}

TEST_F(SafetyGuardTest, AdmitsOnlyPathsBelowItsRoots) {
    const std::string home = mac.home().native();
    const SafetyGuard guard = mac.guard();
    EXPECT_EQ(verdict(guard, "relative/x"), notAbsolute);
    EXPECT_EQ(verdict(guard, ""), notAbsolute);
    EXPECT_EQ(verdict(guard, "https://example.com/x"), notAbsolute);
    EXPECT_EQ(verdict(guard, home + "x/file"), outside) << "a sibling with a longer name";
    EXPECT_EQ(verdict(guard, home + "/a/../../other/file"), outside);
    EXPECT_EQ(verdict(guard, "/"), outside);
    disk.link("top", "/");
    const SafetyGuard whole =
        Profiles::linux("/", disk.path("top"), {}).safetyGuard({}, {disk.path("extra")});
    for (const auto& path :
         {std::filesystem::path("/etc/x"), std::filesystem::path("/.cache/x"), disk.path("extra/x")})
        EXPECT_EQ(verdict(whole, path), "the home folder is the whole disk");

    const std::vector<Case> withoutRoot = {{"/Library/Caches/x", outside}};
    expect(guard, withoutRoot);
    EXPECT_EQ(verdict(SafetyGuard(), "/Library/Caches/x"), outside)
        << "a guard without a home admits nothing";
    expect(mac.guard({mac.at("/Library/Caches")}), {{"/Library/Caches/x", allowed},
                                                    {"/Library/Caches", systemFolder},
                                                    {"/Library/Caches/Pictures/x", allowed},
                                                    {"/Library/Cachesx", outside},
                                                    {"~/.ssh/id", personalData}});
}

TEST_F(SafetyGuardTest, ANestedExtraRootDoesNotLiftTheListsOfTheHome) {
    expect(mac.guard({mac.at("~/Pictures"), mac.at("~/.ssh")}),
           {{"~/Pictures/a.heic", personalData}, {"~/.ssh/id", personalData}, {"~/Pictures", systemFolder}});
}

TEST_F(SafetyGuardTest, RefusesWhatIsReachedThroughALinkButNotTheLinkItself) {
    disk.folder("Users/ana/real/inside");
    disk.link("Users/ana/linked", mac.home() / "real");
    disk.link("Users/ana/Library/Caches/link", "/etc");
    expect(mac.guard(), {
                            {"~/linked/inside", throughLink},
                            {"~/linked/inside/deeper/x", throughLink},
                            {"~/linked", allowed},
                            {"~/real/inside", allowed},
                            {"~/Library/Caches/link", allowed},
                            {"~/Library/Caches/link/passwd", throughLink},
                        });
}

TEST_F(SafetyGuardTest, ABarredFolderShieldsItselfWhatIsInItAndWhatHoldsIt) {
    disk.folder("elsewhere/Keep");
    disk.link("Users/ana/shortcut", disk.path("Users/ana/Target"));
    disk.folder("Users/ana/Target");
    SafetyGuard guard = mac.guard({mac.at("/elsewhere")});
    guard.protectedPaths = {"~/Work", "~/Library/Caches/keep", mac.at("/elsewhere/Keep/").native(),
                            "~/shortcut"};
    expect(guard, {
                      {"~/Work", barred},
                      {"~/Work/a", barred},
                      {"~/Workshop", allowed},
                      {"~/", systemFolder},
                      {"~/Library/Caches/keep/x", barred},
                      {"~/Library/Caches/keep", barred},
                      {"~/Library/Caches/keeper", allowed},
                      {"/elsewhere/Keep/x", barred},
                      {"/elsewhere/other", allowed},
                      {"~/Target/x", barred},
                  });
    guard.protectedPaths = {"~/Code/app/data"};
    expect(guard, {{"~/Code/app", barred}, {"~/Code", barred}, {"~/Code/app/build", allowed}});
}

TEST_F(SafetyGuardTest, AVerdictNamesTheRootThatAdmitted) {
    const SafetyGuard guard = mac.guard({mac.at("/Library/Caches")});
    EXPECT_EQ(guard.check(mac.at("~/Library/Caches/x")).root(), mac.home());
    EXPECT_EQ(guard.check(mac.at("/Library/Caches/x")).root(), mac.at("/Library/Caches"));
}

TEST_F(SafetyGuardTest, AHomeThatIsALinkIsGuardedUnderItsRealName) {
    disk.link("home-link", mac.home());
    const SafetyGuard guard =
        Profiles::macos(disk.root(), disk.path("home-link")).safetyGuard(PreferenceValues(), {});
    EXPECT_EQ(guard.home, mac.home());
    EXPECT_EQ(verdict(guard, mac.at("~/.ssh/id")), personalData);
    EXPECT_EQ(verdict(guard, disk.path("home-link/x")), outside);
}

}  // namespace
}  // namespace tavrel
