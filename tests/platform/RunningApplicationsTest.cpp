#include "platform/RunningApplications.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "support/Sandbox.h"

#include <string>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::Contains;
using testing::Sandbox;
using ::testing::UnorderedElementsAre;

class RunningApplicationsTest : public ::testing::Test {
  protected:
    void process(int number, const std::string& executable, const std::string& comm) {
        const std::string folder = "proc/" + std::to_string(number) + "/";
        sandbox.text(folder + "comm", comm + "\n");
        if (!executable.empty()) sandbox.link(folder + "exe", executable);
    }
    void entry(const std::string& name, const std::string& lines) {
        sandbox.text("applications/" + name, "[Desktop Entry]\n" + lines + "\n");
    }
    [[nodiscard]] RunningApplications running() const {
        return runningApplications(sandbox.path("proc"),
                                   {sandbox.path("applications"), sandbox.path("missing")});
    }

    Sandbox sandbox;
};

TEST_F(RunningApplicationsTest, KnowsProcessesByEveryName) {
    process(7, "/usr/lib/firefox/firefox-bin (deleted)", "firefox");
    process(8, "", "kworker/0:1");
    sandbox.folder("proc/9");
    sandbox.text("proc/self/comm", "no process\n");
    const RunningApplications found = running();
    EXPECT_THAT(found.bundleIDs, UnorderedElementsAre("firefox-bin", "firefox", "kworker/0:1"));
    EXPECT_THAT(found.names, UnorderedElementsAre("firefox-bin"));
}

TEST_F(RunningApplicationsTest, MatchesEntriesWithWhatTheyStart) {
    struct Case {
        std::string exec;
        bool runs;
    };
    const Case cases[] = {
        {"/opt/editor/editor %F", true},
        {"\"/opt/with space/editor\" --new", true},
        {"env LANG=C A=/b editor", true},
        {"/usr/bin/env editor", true},
        {"/usr/bin/flatpak run --branch=stable --command=editor org.example.Editor", true},
        {"a-name-longer-than-fifteen", true},
        {"/usr/bin/flatpak run org.example.Other", false},
        {"editor-helper", false},
        {"", false},
        {"\"unended", false},
    };
    process(1, "/opt/editor/editor", "editor");
    process(2, "/usr/bin/python3.11", "a-name-longer-t");
    process(3, "/usr/bin/flatpak", "flatpak");
    for (const auto& [exec, runs] : cases) {
        entry("vendor/org.example.Editor.desktop", "Name=The Editor\nExec=" + exec);
        const RunningApplications found = running();
        EXPECT_EQ(found.bundleIDs.contains("vendor-org.example.Editor"), runs) << exec;
        EXPECT_EQ(found.names.contains("The Editor"), runs) << exec;
    }
}

TEST_F(RunningApplicationsTest, SeesThisVeryTest) {
    EXPECT_THAT(runningApplications("/proc", {}).bundleIDs, Contains("tavrel_platform_tests"));
    EXPECT_THAT(runningApplications(sandbox.path("missing"), {}).bundleIDs, UnorderedElementsAre());
}

TEST_F(RunningApplicationsTest, NamesComeFromTheFirstFolderThatHasThem) {
    entry("org.example.Paint.desktop", "Name[de]=Malen\nName=Paint\nExec=paint");
    sandbox.text("system/org.example.Paint.desktop", "[Desktop Entry]\nName=Old Paint\n");
    sandbox.text("system/org.example.Draw.desktop", "[Desktop Entry]\nName=Draw\n");
    sandbox.text("system/noise.desktop", std::string("\0\xFF[\n=\n[Desktop Entry", 19));
    sandbox.link("system/loop", ".");
    const DesktopNames names({sandbox.path("applications"), sandbox.path("system")});
    EXPECT_EQ(names.displayName("org.example.Paint"), "Paint");
    EXPECT_EQ(names.displayName("org.example.Draw"), "Draw");
    EXPECT_EQ(names.displayName("noise"), std::nullopt);
}

TEST_F(RunningApplicationsTest, TheUsersOwnApplicationsComeFirst) {
    const auto folders = applicationFolders("/home/somebody");
    ASSERT_FALSE(folders.empty());
    EXPECT_TRUE(
        std::all_of(folders.begin(), folders.end(), [](const auto& path) { return path.is_absolute(); }));
    EXPECT_EQ(folders.front().filename(), "applications");
}

}  // namespace
}  // namespace tavrel
