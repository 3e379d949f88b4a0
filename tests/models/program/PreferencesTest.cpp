#include "models/program/Preferences.h"
#include "support/Sandbox.h"

#include <QSignalSpy>
#include <functional>
#include <limits>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Sandbox;
using Folders = std::vector<fs::path>;
using List = Preferences::PathList;

std::string settings(const std::string& entries) {
    return "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>";
}

class PreferencesTest : public ::testing::Test {
  protected:
    /// The values as the next start of the program reads them.
    [[nodiscard]] PreferenceValues afterRestart() const { return PreferenceValues::read(UserDefaults(file)); }
    [[nodiscard]] const std::vector<std::string>& protectedPaths() const {
        return preferences.values().protectedPaths;
    }

    const Sandbox sandbox;
    const fs::path file = sandbox.path("settings.plist");
    UserDefaults defaults{file};
    Preferences preferences{defaults, "/home/ana"};
};

TEST_F(PreferencesTest, EachChangeIsToldOnceAndSurvivesARestart) {
    struct Row {
        const char* signal;
        std::function<void()> change;
        std::function<void(PreferenceValues&)> expect;
    };
    const Row rows[] = {
        {SIGNAL(dryRunChanged()), [&] { preferences.setDryRun(true); }, [](auto& v) { v.dryRun = true; }},
        {SIGNAL(alwaysTrashChanged()), [&] { preferences.setAlwaysTrash(true); },
         [](auto& v) { v.alwaysTrash = true; }},
        {SIGNAL(soundsChanged()), [&] { preferences.setSounds(false); }, [](auto& v) { v.sounds = false; }},
        {SIGNAL(staleProjectDaysChanged()), [&] { preferences.setStaleProjectDays(90); },
         [](auto& v) { v.staleProjectDays = 90; }},
        {SIGNAL(protectedPathsChanged()),
         [&] { preferences.addFolders(List::ProtectedPaths, Folders{"/srv/\xff"}); },
         [](auto& v) { v.protectedPaths = {"/srv/\xff"}; }},
        {SIGNAL(projectRootsChanged()), [&] { preferences.removeFolder(List::ProjectRoots, 1); },
         [](auto& v) { v.projectRoots.erase(v.projectRoots.begin() + 1); }},
        {SIGNAL(menuBarMetricsChanged()), [&] { preferences.toggleMetric(MenuBarMetric::memory); },
         [](auto& v) { v.menuBarMetrics = {MenuBarMetric::cpu}; }},
    };
    PreferenceValues expected;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.signal);
        const QSignalSpy told(&preferences, row.signal);
        row.expect(expected);
        row.change();
        EXPECT_EQ(preferences.values(), expected);
        EXPECT_EQ(afterRestart(), expected);
        EXPECT_EQ(told.size(), 1);
    }
}

TEST_F(PreferencesTest, WhatIsSetAgainIsNeitherToldNorWritten) {
    const QSignalSpy told(&preferences, &Preferences::soundsChanged);
    preferences.setSounds(true);
    EXPECT_EQ(told.size(), 0);
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(PreferencesTest, TheDaysOfAnOldProjectStayWithinAYear) {
    for (const auto& [asked, kept] : {std::pair(0, 1), {-5, 1}, {365, 365}, {366, 365}, {1, 1}, {30, 30}}) {
        preferences.setStaleProjectDays(asked);
        EXPECT_EQ(preferences.staleProjectDays(), kept) << asked;
    }
}

TEST_F(PreferencesTest, AMetricTakesItsPlaceAmongThoseChosenBefore) {
    using enum MenuBarMetric;
    for (const MenuBarMetric metric : {battery, gpu, cpu, cpu, memory, memory})
        preferences.toggleMetric(metric);
    EXPECT_THAT(preferences.menuBarMetrics(), ElementsAre(cpu, gpu, memory, battery));
    for (const MenuBarMetric metric : {cpu, gpu, memory, battery}) preferences.toggleMetric(metric);
    EXPECT_THAT(afterRestart().menuBarMetrics, IsEmpty());
}

TEST_F(PreferencesTest, UnknownProtectedFoldersAreKnownAgainOnceTheListIsEdited) {
    const char* const wrongType =
        "<key>protectedPaths</key><string>~/Keep</string><key>dryRun</key><integer>"
        "1</integer><key>alwaysTrash</key><true/>";
    const std::pair<std::string, bool> files[] = {
        {settings(""), true},
        {settings("<key>dryRun</key><string>yes</string>"), true},
        {settings("<key>protectedPaths</key><array><string>~/Keep</string></array>"), true},
        {settings(wrongType), false},
        {"no property list", false},
    };
    for (const auto& [content, known] : files) {
        SCOPED_TRACE(content);
        UserDefaults own(sandbox.text("own.plist", content));
        Preferences held(own, "/home/ana");
        EXPECT_EQ(held.knowsProtectedPaths(), known);
        EXPECT_FALSE(held.dryRun());
        held.addFolders(List::ProtectedPaths, Folders{"/home/ana/Keep", "/home/ana/More"});
        EXPECT_TRUE(held.knowsProtectedPaths());
        EXPECT_THAT(PreferenceValues::read(UserDefaults(own.file())).protectedPaths,
                    ElementsAre("~/Keep", "~/More"));
    }
    UserDefaults own(sandbox.text("own.plist", settings(wrongType)));
    Preferences held(own, "/home/ana");
    held.setDryRun(true);
    EXPECT_FALSE(held.knowsProtectedPaths());  // for that says nothing of them
}

TEST_F(PreferencesTest, AFileThatNobodyCanReadIsNotReplacedByALesserOne) {
    UserDefaults damaged(sandbox.text("own.plist", "no property list"));
    Preferences held(damaged, "/home/ana");
    held.setSounds(false);
    held.toggleMetric(MenuBarMetric::cpu);
    EXPECT_FALSE(held.sounds());
    EXPECT_FALSE(held.knowsProtectedPaths());
    EXPECT_EQ(contentOf(damaged.file()), "no property list");
}

TEST_F(PreferencesTest, WhatCannotBeWrittenHoldsUntilTheEnd) {
    UserDefaults unwritable(sandbox.text("taken", "a file") / "settings.plist");
    Preferences held(unwritable, "/home/ana");
    const QSignalSpy told(&held, &Preferences::dryRunChanged);
    held.setDryRun(true);
    held.addFolders(List::ProtectedPaths, Folders{"/home/ana/Keep"});
    held.toggleMetric(MenuBarMetric::cpu);
    EXPECT_EQ(told.size(), 1);
    EXPECT_TRUE(held.dryRun());
    EXPECT_EQ(held.protectedPaths(), QStringList("~/Keep"));
    EXPECT_THAT(held.menuBarMetrics(), ElementsAre(MenuBarMetric::memory));
    EXPECT_EQ(contentOf(sandbox.path("taken")), "a file");
}

TEST_F(PreferencesTest, AFolderOfTheHomeIsKeptByItsTilde) {
    const std::pair<fs::path, std::string> cases[] = {
        {"/home/ana/My files", "~/My files"},
        {"/home/ana", "~"},
        {"/home/anabel", "/home/anabel"},
        {"/home", "/home"},
        {"/srv/home/ana", "/srv/home/ana"},
        {"/home/ana/code/", "~/code"},
        {"/home/ana/", "~"},
        {"/", "/"},
    };
    for (const auto& [chosen, kept] : cases) {
        preferences.addFolders(List::ProtectedPaths, Folders{chosen});
        EXPECT_THAT(protectedPaths(), ElementsAre(kept)) << chosen;
        preferences.removeFolder(List::ProtectedPaths, 0);
    }
}

TEST_F(PreferencesTest, SeveralFoldersAreAddedInOrderAndNoneTwice) {
    const QSignalSpy told(&preferences, &Preferences::protectedPathsChanged);
    preferences.addFolders(List::ProtectedPaths, Folders{"/srv/b", "/home/ana/a", "/srv/b"});
    EXPECT_THAT(protectedPaths(), ElementsAre("/srv/b", "~/a"));
    preferences.addFolders(List::ProtectedPaths, Folders{"/home/ana/a", "/srv/c"});
    EXPECT_THAT(protectedPaths(), ElementsAre("/srv/b", "~/a", "/srv/c"));
    preferences.addFolders(List::ProtectedPaths, Folders{"/srv/c"});
    preferences.addFolders(List::ProtectedPaths, Folders{"/srv/c/", "/home/ana/a/"});
    EXPECT_EQ(protectedPaths().size(), 3U);
    EXPECT_EQ(told.size(), 2);
    EXPECT_EQ(preferences.values().projectRoots, PreferenceValues().projectRoots);
}

TEST_F(PreferencesTest, OnlyFoldersOfThisMachineAreTakenFromADialog) {
    const auto folder = sandbox.folder("some #1 folder");
    const auto plain = sandbox.text("file", "x");
    preferences.addFolders(List::ProtectedPaths,
                           QList<QUrl>{QUrl::fromLocalFile(QString::fromStdString(folder.native())),
                                       QUrl::fromLocalFile(QString::fromStdString(plain.native())),
                                       QUrl("https://example.org/folder"), QUrl()});
    EXPECT_THAT(protectedPaths(), ElementsAre(folder.native()));
}

TEST_F(PreferencesTest, OnlyAnEntryThatIsThereIsTakenOut) {
    preferences.addFolders(List::ProtectedPaths, Folders{"/a", "/b", "/c"});
    for (const int index : {-1, 3, std::numeric_limits<int>::max()}) {
        preferences.removeFolder(List::ProtectedPaths, index);
        EXPECT_EQ(protectedPaths().size(), 3U) << index;
    }
    preferences.removeFolder(List::ProtectedPaths, 1);
    EXPECT_THAT(protectedPaths(), ElementsAre("/a", "/c"));
    EXPECT_THAT(PreferenceValues::read(UserDefaults(defaults.file())).protectedPaths,
                ElementsAre("/a", "/c"));
}

TEST_F(PreferencesTest, PathsOfAnyBytesAreFitToBeRead) {
    preferences.addFolders(List::ProjectRoots, Folders{"/srv/two\nlines", "/srv/\xff"});
    EXPECT_EQ(preferences.projectRoots().sliced(11), QStringList({"/srv/two\\nlines", "/srv/\\xFF"}));
}

}  // namespace
}  // namespace tavrel
