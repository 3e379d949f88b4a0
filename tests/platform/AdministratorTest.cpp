#include "platform/Administrator.h"
#include "platform/linux/LinuxAdministrator.h"
#include "platform/macos/AppleScriptAdministrator.h"
#include "platform/posix/PosixShell.h"
#include "support/Sandbox.h"
#include "support/ScriptedShell.h"

#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;
using testing::ScriptedShell;
using namespace std::chrono_literals;
using Calls = std::vector<ScriptedShell::Call>;

constexpr uid_t root = 0;
constexpr uid_t somebody = 1000;

TEST(Administrator, RootIsNotAsked) {
    PosixShell shell;
    const CommandResult result = LinuxAdministrator(shell, root).run("echo \"a  b\"; exit 126", 10s);
    EXPECT_EQ(result.status, 126);
    EXPECT_EQ(result.output, "a  b");
}

TEST(Administrator, OnLinuxWhatFailsIsToldInOneLine) {
    const std::string refused = "Administrator rights could not be obtained";
    const std::string nobody = "Nobody could be asked for the administrator's password";
    const std::string warning = "\n(flatpak:33): GLib-WARNING **: 18:46:01.000: no bus\n";
    const std::string step = "busy\n__TAVREL_DONE__ one 1\n";
    const std::pair<CommandResult, std::string> cases[] = {
        {{0, "a\nb\n"}, "a\nb\n"},
        {{1, "E: no lock\r\n\x1b[31mE: is it busy?\x1b[0m\a\n" + warning + "\n"}, "E: is it busy?"},
        {{1, warning}, ""},
        {{15, step}, step},
        {{126, "Error executing command as another user: Request dismissed\n"}, "-128"},
        {{127, "Error executing command as another user: Not authorized\n\nThis incident has been reported."},
         "Not authorized to act as administrator"},
        {{127, "Error executing command as another user: No authentication agent found.\n"}, nobody},
        {{127, warning + "Error creating textual authentication agent: /dev/tty\n"}, nobody},
        {{127, "Error getting authority: Error initializing authority: no such file\n"},
         "The system's authorization service (polkit) does not answer"},
        {{127, "first\nlast\n"}, refused + ": last"},
        {{127, ""}, refused},
        {{-1, "No such file"}, "Administrator rights need pkexec, which could not be started: No such file"},
    };
    for (const auto& [answer, output] : cases) {
        ScriptedShell shell(answer);
        const CommandResult result = LinuxAdministrator(shell, somebody).run("true && 'x y'", 600s);
        EXPECT_EQ(result.status, answer.status);
        EXPECT_EQ(result.output, output);
        EXPECT_EQ(shell.calls, (Calls{{"/usr/bin/pkexec", {"/bin/sh", "-c", "true && 'x y'"}, 600s}}));
    }
}

TEST(Administrator, OnMacOSTheScriptIsALiteral) {
    ScriptedShell shell({1, "execution error: User canceled. (-128)"});
    const CommandResult result = AppleScriptAdministrator(shell).run(R"(rm 'a"b\c')", 30s);
    EXPECT_NE(result.output.find(Administrator::dismissed), std::string::npos);
    const std::string line = R"(do shell script "rm 'a\"b\\c'" with administrator privileges)";
    EXPECT_EQ(shell.calls, (Calls{{"/usr/bin/osascript", {"-e", line}, 30s}}));
}

TEST(Administrator, OnlyPathsThatRootAloneControlsAreNamed) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs root to make root's folders";
    const Sandbox sandbox("/var/tmp");
    const auto folder = [&sandbox](const char* name, mode_t mode, uid_t owner) {
        auto path = sandbox.folder(name);
        EXPECT_EQ(::chown(path.c_str(), owner, owner), 0);
        EXPECT_EQ(::chmod(path.c_str(), mode), 0);
        return path;
    };
    const auto own = folder("own", 0755, root);
    const std::pair<std::filesystem::path, bool> cases[] = {
        {own / "file", true},
        {own / "missing/file", false},
        {folder("sticky", 01777, root) / "file", true},
        {folder("open", 0777, root) / "file", true},
        {folder("open/inner", 0755, root) / "file", false},
        {folder("group", 0775, root) / "file", true},
        {folder("group/inner", 0755, root) / "file", false},
        {folder("sticky/inner", 0755, root) / "file", true},
        {folder("users", 0755, somebody) / "file", true},
        {folder("users/inner", 0755, root) / "file", false},
        {sandbox.link("link", "own") / "file", false},
        {own / "../own/file", false},
        {own / "", false},
        {"relative", false},
        {"", false},
        {"/", false},
        {"/etc", true}};
    ScriptedShell shell;
    for (const auto& [path, named] : cases) {
        EXPECT_EQ(LinuxAdministrator(shell, somebody).mayName(path), named) << path;
        EXPECT_EQ(AppleScriptAdministrator(shell).mayName(path), named) << path;
    }
}

}  // namespace
}  // namespace tavrel
