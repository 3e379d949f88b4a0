#include "core/Scripts.h"
#include "platform/posix/PosixShell.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using namespace std::chrono_literals;

TEST(Scripts, StatusBatchRunsEveryCommandAndTellsOfAnyFailure) {
    struct Case {
        std::vector<std::string> commands;
        std::int32_t status;
        std::string output;
    };
    const Case cases[] = {
        {{}, 0, ""},
        {{"printf a", "printf b"}, 0, "ab"},
        {{"false", "printf b"}, 1, "b"},
        {{"printf a", "(exit 7)"}, 1, "a"},
    };
    for (const auto& [commands, status, output] : cases) {
        const auto result = PosixShell().run("/bin/sh", {"-c", Scripts::statusBatch(commands)}, 10s);
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.output, output);
    }
}

}  // namespace
}  // namespace tavrel
