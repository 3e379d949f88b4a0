#include "platform/RunningApplications.h"
#include "platform/linux/processes/LinuxRunningApplications.h"
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
    process(10, "/snap/slack/77/usr/lib/Slack/Slack", "Slack");
    process(11, "/usr/bin/python3.11", "python3");
    sandbox.text("proc/11/cmdline", std::string("python3\0/opt/notes/Notes.py\0--x\0", 32));
    sandbox.text("proc/11/root/.flatpak-info", "[Application]\nname=org.example.Notes\n");
    sandbox.link("proc/11/fd/3", "/home/a/.cache/notes/index");
    sandbox.link("proc/11/fd/4", "/home/a/gone (deleted)");
    sandbox.link("proc/11/fd/5", "socket:[77]");
    const RunningApplications found = running();
    EXPECT_THAT(found.bundleIDs, UnorderedElementsAre("firefox-bin", "firefox", "kworker/0:1", "Slack",
                                                      "slack", "python3.11", "python3", "Notes.py",
                                                      "notes.py", "org.example.Notes", "org.example.notes"));
    EXPECT_THAT(found.names, UnorderedElementsAre("firefox-bin", "Slack", "slack", "python3.11"));
    EXPECT_TRUE(found.use("/home/a/.cache/notes"));
    EXPECT_TRUE(found.use("/opt/notes/Notes.py"));
    EXPECT_FALSE(found.use("/home/a/.cache/note"));
    EXPECT_FALSE(found.use("/home/a/gone"));
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
    EXPECT_FALSE(runningApplications(sandbox.path("missing"), {}).complete);
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
