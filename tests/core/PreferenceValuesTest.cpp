#include "core/PreferenceValues.h"
#include "support/Sandbox.h"

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using testing::Sandbox;

UserDefaults holding(const Sandbox& sandbox, const std::string& entries) {
    return UserDefaults(
        sandbox.text("s.plist", "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>"));
}

TEST(PreferenceValues, EveryFieldBeginsWithItsDefaultAndSurvivesARestart) {
    PreferenceValues chosen;
    chosen.protectedPaths = {"~/Keep", "/srv/\xFF", "/srv/\\x41", "C:\\"};  // a path may be any bytes
    chosen.projectRoots = {};
    chosen.staleProjectDays = 365;
    chosen.dryRun = true;
    chosen.alwaysTrash = true;
    chosen.menuBarMetrics = {MenuBarMetric::network, MenuBarMetric::cpu};
    chosen.sounds = false;
    chosen.pinnedProcesses = {"kernel_task"};

    const Sandbox sandbox;
    UserDefaults defaults(sandbox.path("s.plist"));
    EXPECT_EQ(PreferenceValues::read(defaults), PreferenceValues());
    EXPECT_THAT(PreferenceValues::unreadableKeys(defaults), ElementsAre());
    for (const std::string_view key : PreferenceValues::keys()) {
        ASSERT_FALSE(defaults.set(std::string(key), chosen.value(key).value()));
    }
    EXPECT_EQ(PreferenceValues::read(UserDefaults(sandbox.path("s.plist"))), chosen);
    EXPECT_EQ(chosen.value("unknown"), std::nullopt);
}

TEST(PreferenceValues, AWrongTypeTakesTheDefaultAndIsTold) {
    const Sandbox sandbox;
    const UserDefaults defaults = holding(sandbox,
                                          "<key>protectedPaths</key><string>~/Keep</string>"
                                          "<key>projectRoots</key><array><integer>1</integer></array>"
                                          "<key>staleProjectDays</key><string>7</string>"
                                          "<key>dryRun</key><true/>"
                                          "<key>alwaysTrash</key><integer>1</integer>"
                                          "<key>menuBarMetrics</key><dict/>"
                                          "<key>sounds</key><data></data>");
    PreferenceValues expected;
    expected.dryRun = true;
    EXPECT_EQ(PreferenceValues::read(defaults), expected);
    EXPECT_THAT(PreferenceValues::unreadableKeys(defaults),
                ElementsAre("protectedPaths", "projectRoots", "staleProjectDays", "alwaysTrash",
                            "menuBarMetrics", "sounds"));
}

TEST(PreferenceValues, UnknownMetricsAreDroppedAndTheOrderKept) {
    const Sandbox sandbox;
    const UserDefaults defaults = holding(sandbox,
                                          "<key>menuBarMetrics</key><array><string>disk</"
                                          "string><string>warp</string><string>gpu</string></array>");
    EXPECT_THAT(PreferenceValues::read(defaults).menuBarMetrics,
                ElementsAre(MenuBarMetric::disk, MenuBarMetric::gpu));
    EXPECT_THAT(PreferenceValues::unreadableKeys(defaults), ElementsAre());
}

TEST(PreferenceValues, OnlyCodeFoldersThatExistAreUsed) {
    const Sandbox sandbox;
    sandbox.folder("home/code");
    sandbox.folder("work");
    PreferenceValues preferences;
    preferences.projectRoots = {"~/gone", "~/code", sandbox.path("work").native()};
    EXPECT_THAT(preferences.projectRootURLs(sandbox.path("home")),
                ElementsAre(sandbox.path("home/code"), sandbox.path("work")));
}

}  // namespace
}  // namespace tavrel
