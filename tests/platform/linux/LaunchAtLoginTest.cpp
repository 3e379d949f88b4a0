#include "core/UserDefaults.h"
#include "platform/LaunchAtLogin.h"
#include "platform/linux/desktop/DesktopEntry.h"
#include "platform/linux/desktop/LinuxLaunchAtLogin.h"
#include "support/Sandbox.h"

#include <string>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using testing::Sandbox;
using Start = LinuxLaunchAtLogin::Start;

constexpr const char* entry = "autostart/com.quennith.tavrel.desktop";

LinuxLaunchAtLogin launchFor(const Sandbox& sandbox, const std::string& program = "/usr/bin/tavrel") {
    return {sandbox.path("autostart"), program, Start::byUser};
}

TEST(LaunchAtLogin, SwitchesOnAndOff) {
    const Sandbox sandbox;
    LinuxLaunchAtLogin launch = launchFor(sandbox);
    EXPECT_FALSE(launch.isEnabled());
    EXPECT_TRUE(launch.set(false));
    EXPECT_TRUE(launch.set(true));
    EXPECT_TRUE(launch.isEnabled());
    EXPECT_TRUE(launch.set(false));
    EXPECT_FALSE(std::filesystem::exists(sandbox.path(entry)));

    sandbox.file("taken");
    EXPECT_FALSE(LinuxLaunchAtLogin(sandbox.path("taken"), "/usr/bin/tavrel", Start::byLogin).set(true));
}

TEST(LaunchAtLogin, ASwitchOffByTheDesktopIsRespected) {
    const std::pair<std::string, bool> cases[] = {
        {"Exec=tavrel\n", true},
        {"Hidden=false\nX-GNOME-Autostart-enabled=true\n", true},
        {"Hidden=true\n", false},
        {"X-GNOME-Autostart-enabled = false\r\n", false},
        {"#Hidden=true\n[Desktop Action x]\nHidden=true\n", true},
    };
    const Sandbox sandbox;
    for (const auto& [lines, enabled] : cases) {
        sandbox.text(entry, "[Desktop Entry]\n" + lines);
        EXPECT_EQ(launchFor(sandbox).isEnabled(), enabled) << lines;
    }
}

TEST(LaunchAtLogin, TheEntryStartsTheProgramWhateverItsPath) {
    for (const std::string program :
         {"/opt/it's a \"test\"/`$HOME`/a\\b", "/tmp/new\nline\t", "/usr/bin/tavrel"}) {
        const Sandbox sandbox;
        ASSERT_TRUE(launchFor(sandbox, program).set(true));
        EXPECT_THAT(DesktopEntry::read(sandbox.path(entry)).value().command(),
                    ElementsAre(program, "--login"));
    }
    EXPECT_EQ(DesktopEntry::commandWord("/a 100%\\"), "\"/a 100%%\\\\\\\\\"");
}

TEST(LaunchAtLogin, TheFirstLaunchOptsInOnce) {
    const Sandbox sandbox;
    UserDefaults defaults(sandbox.path("s.plist"));
    LinuxLaunchAtLogin launch = launchFor(sandbox);
    launch.enableOnFirstLaunch(defaults);
    EXPECT_TRUE(launch.isEnabled());

    launch.set(false);
    UserDefaults restarted(sandbox.path("s.plist"));
    launch.enableOnFirstLaunch(restarted);
    EXPECT_FALSE(launch.isEnabled());

    sandbox.file("taken");
    UserDefaults unwritable(sandbox.path("taken/s.plist"));
    launch.enableOnFirstLaunch(unwritable);
    EXPECT_FALSE(launch.isEnabled());
}

}  // namespace
}  // namespace tavrel
