#include "platform/macos/Scripts.h"
#include "platform/posix/PosixShell.h"

#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using namespace std::chrono_literals;

CommandResult inShell(const std::string& script) {
    return PosixShell().run("/bin/sh", {"-c", script}, 10s);
}

TEST(Scripts, StatusBatchRunsEveryCommandAndTellsOfAnyFailure) {
    const std::tuple<std::vector<std::string>, std::int32_t, std::string> cases[] = {
        {{}, 0, ""},
        {{"printf a", "printf b"}, 0, "ab"},
        {{"false", "printf b"}, 1, "b"},
        {{"printf a", "(exit 7)"}, 1, "a"},
    };
    for (const auto& [commands, status, output] : cases) {
        const CommandResult result = inShell(Scripts::statusBatch(commands));
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.output, output);
    }
}

TEST(Scripts, MarkerBatchTellsOfEachStep) {
    const std::string script = Scripts::markerBatch({
        {"first", "echo one; echo two >&2"},
        {"silent", "(exit 3)"},
        {"unended", "printf 'no newline'"},
        {"missing", "no-such-command-here 2>/dev/null"},
    });
    const std::vector<Scripts::StepResult> expected = {
        {"first", 0, "one\ntwo"},
        {"silent", 3, ""},
        {"unended", 0, "no newline"},
        {"missing", 127, ""},
    };
    EXPECT_EQ(Scripts::markerResults(inShell(script).output), expected);
}

TEST(Scripts, MarkersAreReadFromAnyText) {
    const std::pair<std::string, std::vector<Scripts::StepResult>> cases[] = {
        {"", {}},
        {"one\rtwo\r__TAVREL_DONE__ a 0\r", {{"a", 0, "one\ntwo"}}},  // carriage returns alone
        {"__TAVREL_DONE__ a -1\r\n\r\n__TAVREL_DONE__ b 2", {{"a", -1, ""}, {"b", 2, ""}}},
        {"x\n__TAVREL_DONE__ a", {}},  // broken off
        {"__TAVREL_DONE__ a 99999999999\n__TAVREL_DONE__\n__TAVREL_DONE__  0\n", {}},
        {"+ echo '__TAVREL_DONE__ a 0'\n__TAVREL_DONE__ a 1\n", {{"a", 1, "+ echo '__TAVREL_DONE__ a 0'"}}},
    };
    for (const auto& [output, results] : cases) EXPECT_EQ(Scripts::markerResults(output), results) << output;
}

}  // namespace
}  // namespace tavrel
