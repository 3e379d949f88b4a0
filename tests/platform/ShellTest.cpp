#include "core/FileHandle.h"
#include "core/Files.h"
#include "platform/Shell.h"
#include "platform/posix/NoCommands.h"
#include "platform/posix/PosixShell.h"
#include "support/Sandbox.h"

#include <chrono>
#include <cmath>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

CommandResult sh(const std::string& line, std::chrono::duration<double> timeout = 20s) {
    return PosixShell().run("/bin/sh", {"-c", line}, timeout);
}

TEST(Shell, TellsHowACommandEnded) {
    const std::tuple<std::string, std::int32_t, std::string> cases[] = {
        {"echo out; echo err >&2; echo out", 0, "out\nerr\nout\n"},
        {"exit 3", 3, ""},
        {"kill -KILL $$", SIGKILL, ""},
        {"read line || echo nothing to read", 0, "nothing to read\n"},
        {"printf 'a\\377b'", 0, "a\uFFFDb"},
        {"head -c 1048576 /dev/zero | tr '\\0' x >&2", 0, std::string(1 << 20, 'x')},
    };
    for (const auto& [line, status, output] : cases) {
        const CommandResult result = sh(line);
        EXPECT_EQ(result.status, status) << line;
        EXPECT_TRUE(result.output == output) << line;
    }
}

TEST(Shell, WhatCannotStartIsAnAnswerToo) {
    const Sandbox sandbox;
    PosixShell shell;
    for (const std::string& path :
         {std::string("/no/such/tool"), sandbox.root().native(), std::string("/bin/sh\0x", 9)}) {
        const CommandResult result = shell.run(path, {}, 5s);
        EXPECT_EQ(result.status, -1);
        EXPECT_FALSE(result.output.empty());
    }
    EXPECT_EQ(shell.run("/bin/echo", {std::string("a\0b", 3)}, 5s).status, -1);
    EXPECT_EQ(NoCommands().run("/bin/echo", {"a"}, 5s).status, -1);
}

TEST(Shell, TheLimitTerminatesTheWholeGroup) {
    const std::tuple<std::string, std::int32_t, std::string> cases[] = {
        {"echo early; exec sleep 60", SIGTERM, "early\n"},
        {"sleep 60 & echo early; wait", SIGTERM, "early\n"},
        {"exec >&- 2>&-; exec sleep 60", SIGTERM, ""},        // closed its output and runs on
        {"sleep 60 & echo left behind", 0, "left behind\n"},  // ended, and its child holds the pipe
        // Nothing stronger than one signal that a command may ignore.
        {"trap '' TERM; sleep 0.8; echo done; exit 9", 9, "done\n"},
    };
    for (const auto& [line, status, output] : cases) {
        const auto start = Clock::now();
        const CommandResult result = sh(line, 300ms);
        EXPECT_EQ(result.status, status) << line;
        EXPECT_EQ(result.output, output) << line;
        EXPECT_GE(Clock::now() - start, 300ms) << line;
        EXPECT_LT(Clock::now() - start, 20s) << line;
    }
}

TEST(Shell, AnyLimitIsTaken) {
    for (const double seconds : {0.0, -1.0, std::nan("")}) {
        EXPECT_EQ(sh("exec sleep 60", std::chrono::duration<double>(seconds)).status, SIGTERM);
    }
    EXPECT_EQ(sh("echo x", std::chrono::duration<double>(1e300)).output, "x\n");
}

TEST(Shell, TheChildInheritsNothingOfOurs) {
    // A handle that somebody forgot to close on exec, and signals that this program ignores or blocks.
    const FileHandle forgotten(::open("/dev/null", O_RDONLY));
    const auto formerly = std::signal(SIGTERM, SIG_IGN);
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);

    EXPECT_EQ(sh("[ -e /proc/self/fd/" + std::to_string(forgotten.get()) + " ] || echo closed").output,
              "closed\n");
    EXPECT_EQ(sh("kill -TERM $$; echo alive").status, SIGTERM);
    EXPECT_EQ(sh("(: < /dev/tty) 2>/dev/null || echo no terminal").output, "no terminal\n");

    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    std::signal(SIGTERM, formerly);
}

TEST(Shell, ManyAtOnceLeaveNothingBehind) {
    const std::size_t handles = Files::names("/proc/self/fd").size();
    std::vector<std::thread> threads;
    std::vector<std::string> outputs(16);
    for (std::size_t index = 0; index < outputs.size(); ++index) {
        threads.emplace_back([&outputs, index] {
            for (int round = 0; round < 10; ++round)
                outputs[index] = sh("echo " + std::to_string(index)).output;
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (std::size_t index = 0; index < outputs.size(); ++index) {
        EXPECT_EQ(outputs[index], std::to_string(index) + "\n");
    }
    EXPECT_EQ(Files::names("/proc/self/fd").size(), handles);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);  // no child is left, running or dead
    EXPECT_EQ(errno, ECHILD);
}

}  // namespace
}  // namespace tavrel
