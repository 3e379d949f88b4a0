#include "platform/linux/LinuxAdministrator.h"
#include "support/Sandbox.h"

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::Each;
using testing::Sandbox;
using namespace std::chrono_literals;
using Kind = Administrator::Refusal::Kind;

constexpr uid_t somebody = 1000;

class LinuxAdministratorTest : public ::testing::Test {
  protected:
    [[nodiscard]] std::filesystem::path script(const std::string& name, const std::string& body) const {
        auto path = sandbox.text(name, "#!/bin/sh\n" + body + "\n");
        EXPECT_EQ(::chmod(path.c_str(), 0755), 0);
        return path;
    }
    /// What a pkexec that grants everything starts, told by a person at no terminal.
    [[nodiscard]] Administrator::Outcome run(const std::filesystem::path& helper,
                                             const std::vector<RootStep>& steps,
                                             std::chrono::duration<double> timeout = 20s) const {
        const auto pkexec = script("pkexec", "[ \"$1\" = --disable-internal-agent ] || exit 3\nexec \"$2\"");
        return LinuxAdministrator(ChildTerminal::none, somebody, {pkexec, helper}).run(steps, timeout);
    }
    [[nodiscard]] EntryRemoval removal(const std::filesystem::path& path) const {
        return {path, systemFolderAccess().identify(AT_FDCWD, path).value_or(FileIdentity{})};
    }

    const Sandbox sandbox;
    const std::vector<RootStep> two{2, ToolRun{RootTool::cleanAptCache}};
};

TEST_F(LinuxAdministratorTest, WhatPkexecRefusesIsWorded) {
    const std::string nobody = "Nobody could be asked for the administrator's password";
    const std::string refused = "Administrator rights could not be obtained";
    const std::tuple<std::string, Kind, std::string> cases[] = {
        {"echo 'Error executing command as another user: Request dismissed' >&2; exit 126", Kind::dismissed,
         "Password prompt cancelled"},
        {"echo 'Error executing command as another user: Not authorized\n\nThis incident has been reported.' "
         ">&2; exit 127",
         Kind::unavailable, "Not authorized to act as administrator"},
        {"echo 'No authentication agent found.' >&2; exit 127", Kind::unavailable, nobody},
        {"echo 'Error creating textual authentication agent: /dev/tty' >&2; exit 127", Kind::unavailable,
         nobody},
        {"echo 'Error getting authority: no such file' >&2; exit 127", Kind::unavailable,
         "The system's authorization service (polkit) does not answer"},
        {"printf 'first\nlast\n\n(x:33): GLib-WARNING **: no bus\n' >&2; exit 127", Kind::unavailable,
         refused + ": last"},
        {"exit 127", Kind::unavailable, refused},
        {"echo hello; echo '\033[31mbroken\033[0m' >&2", Kind::unavailable,
         "Tavrel's helper for administrator work failed: broken"},
        {"exec sleep 60", Kind::timedOut, "It took too long"},
    };
    for (const auto& [body, kind, message] : cases) {
        const LinuxAdministrator::Programs programs{script("pkexec", body), "/bin/true"};
        const auto start = std::chrono::steady_clock::now();
        const auto outcome = LinuxAdministrator(ChildTerminal::shared, somebody, programs).run(two, 2s);
        EXPECT_LT(std::chrono::steady_clock::now() - start, 10s) << body;
        ASSERT_FALSE(outcome.has_value()) << body;
        EXPECT_EQ(outcome.error().kind, kind) << body;
        EXPECT_EQ(outcome.error().message, message);
    }
    for (const LinuxAdministrator::Programs& missing :
         {LinuxAdministrator::Programs{"/nonexistent", "/bin/true"},
          LinuxAdministrator::Programs{"/bin/true", std::nullopt}}) {
        const auto outcome = LinuxAdministrator(ChildTerminal::none, somebody, missing).run(two, 2s);
        EXPECT_EQ(outcome.error().kind, Kind::unavailable);
    }
}

TEST_F(LinuxAdministratorTest, StepsWithoutAnAnswerCountAsFailed) {
    const std::string answers = "echo tavrel-root-helper 1; read line; echo done; ";
    const std::pair<std::string, std::string> cases[] = {
        {answers, "Tavrel's helper for administrator work ended before it was done"},
        {answers + "exec sleep 60", "It took too long"},
        {answers + "head -c 200000 /dev/zero; exec sleep 60",
         "Tavrel's helper for administrator work ended before it was done"},
    };
    for (const auto& [body, reason] : cases) {
        const auto results = run(script("helper", body), two, 2s);
        ASSERT_TRUE(results.has_value()) << body;
        EXPECT_EQ(*results, (std::vector{StepResult::done(), StepResult::failed(reason)})) << body;
    }
}

TEST_F(LinuxAdministratorTest, ABatchOfAnyLengthReachesTheHelper) {
    ::setenv("TEST_ROOT", sandbox.root().c_str(), 1);
    std::vector<RootStep> steps;
    steps.reserve(900);
    for (int i = 0; i < 900; ++i)
        steps.emplace_back(
            removal(sandbox.file("log/" + std::string(200, 'x') + std::to_string(i) + "\n\xFF")));
    const auto results = run(TEST_HELPER, steps);
    ASSERT_TRUE(results.has_value());
    EXPECT_EQ(results->size(), steps.size());
    EXPECT_THAT(*results, Each(StepResult::done()));
    EXPECT_TRUE(std::filesystem::is_empty(sandbox.path("log")));

    const auto asRoot = LinuxAdministrator(ChildTerminal::none, 0, {"/nonexistent", TEST_HELPER})
                            .run({removal(sandbox.file("log/a"))}, 20s);
    EXPECT_EQ(asRoot.value(), std::vector{StepResult::done()}) << "root is not asked";
}

}  // namespace
}  // namespace tavrel
