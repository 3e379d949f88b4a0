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
    EXPECT_EQ(result.output, "a  b\n");
}

TEST(Administrator, OnLinuxThePromptsEndingIsTold) {
    struct Case {
        CommandResult answer;
        std::string output;
    };
    const std::string refused = "Administrator rights could not be obtained.";
    const Case cases[] = {
        {{0, "done\n"}, "done\n"},
        {{1, "rm: cannot remove"}, "rm: cannot remove"},
        {{126, "Error: Request dismissed"}, "Error: Request dismissed\n-128"},
        {{126, ""}, "-128"},
        {{127, "no agent"}, refused + "\nno agent"},
        {{-1, ""}, refused},
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
    struct Case {
        std::filesystem::path path;
        bool named;
    };
    const Case cases[] = {
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
        {"/etc", true},
    };
    ScriptedShell shell;
    for (const auto& [path, named] : cases) {
        EXPECT_EQ(LinuxAdministrator(shell, somebody).mayName(path), named) << path;
        EXPECT_EQ(AppleScriptAdministrator(shell).mayName(path), named) << path;
    }
}

}  // namespace
}  // namespace tavrel
