#include "platform/macos/AppleScriptAdministrator.h"
#include "support/Sandbox.h"
#include "support/ScriptedShell.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using testing::Sandbox;
using testing::ScriptedShell;
using namespace std::chrono_literals;
using Calls = std::vector<ScriptedShell::Call>;

TEST(AppleScriptAdministrator, TheBatchIsOneScriptInALiteral) {
    ScriptedShell shell;
    const auto results = AppleScriptAdministrator(shell).run(
        {ToolRun{RootTool::deleteLocalSnapshot, {"2026-01-02-030405"}},
         ToolRun{RootTool::deleteLocalSnapshot, {"/; reboot"}}, EntryRemoval{R"(/Library/it's "a\b")", {}}},
        30s);
    const std::string line =
        R"(do shell script "status=0; /usr/bin/tmutil deletelocalsnapshots 2026-01-02-030405 || status=1; )"
        R"(/bin/rm -rf -- '/Library/it'\\''s \"a\\b\"' || status=1; exit $status" with administrator privileges)";
    EXPECT_EQ(shell.calls, (Calls{{"/usr/bin/osascript", {"-e", line}, 30s}}));
    EXPECT_THAT(
        results.value(),
        ElementsAre(StepResult::done(), StepResult::refused(RootRefusal::badArguments), StepResult::done()));
}

TEST(AppleScriptAdministrator, AfterAFailureWhatIsGoneCountsAsRemoved) {
    const Sandbox sandbox;
    const std::vector<RootStep> steps = {EntryRemoval{sandbox.path("gone"), {}},
                                         EntryRemoval{sandbox.link("dangling", "nowhere"), {}},
                                         ToolRun{RootTool::cleanAptCache}};
    ScriptedShell shell({1, "\n rm: it is busy \n"});
    const auto busy = StepResult::failed("rm: it is busy");
    EXPECT_THAT(AppleScriptAdministrator(shell).run(steps, 30s).value(),
                ElementsAre(StepResult::done(), busy, busy));

    ScriptedShell dismissing({1, "execution error: User canceled. (-128)"});
    const auto outcome = AppleScriptAdministrator(dismissing).run(steps, 30s);
    ASSERT_FALSE(outcome.has_value());
    EXPECT_EQ(outcome.error().kind, Administrator::Refusal::Kind::dismissed);
}

}  // namespace
}  // namespace tavrel
