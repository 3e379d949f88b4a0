#include "platform/macos/TopProcesses.h"
#include "platform/macos/TopReport.h"
#include "support/ScriptedShell.h"

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ScriptedShell;

TEST(TopReport, TheRowsOfTheLastSampleCount) {
    const std::string output =
        "Processes: 400 total\n\n"
        "PID    COMMAND          %CPU MEM    POWER\n"
        "1      launchd          9.9  20M    9.9\n"
        "Processes: 401 total\n"
        "PID    COMMAND          %CPU MEM    POWER\n"
        "412    Google  Chrome He 3.1  512M+  0.4\n"
        "\n"
        "7      four             1.0  2K\n"
        "x7     letter           1.0  2K     1.0\n"
        "99999999999 far         1.0  2K     1.0\n"
        "8      endless          inf  2K     1.0\n"
        "8      nameless         nan  2K     1.0\n"
        "0      kernel_task      180.5 1.5G- 12.25\n";
    EXPECT_THAT(TopReport::processes(output),
                ElementsAre(ProcessInfo{412, "Google Chrome He", 3.1, 536'870'912, 0.4},
                            ProcessInfo{0, "kernel_task", 180.5, 1'610'612'736, 12.25}));
    for (const char* text : {"", "\n\n", "1 a 1.0 2K 1.0\n", "1 a 1.0 2K 1.0\nPID", "PID\nPID COMMAND\n"})
        EXPECT_THAT(TopReport::processes(text), IsEmpty()) << text;
}

TEST(TopReport, MemoryIsAFigureAndAUnit) {
    const std::pair<std::string, std::int64_t> cases[] = {
        {"123K-", 125'952}, {"900B", 900}, {"0.3K", 307}, {"512", 51},
        {"7", 7},           {"12.5", 12},  {"8é", 8},     {"5\xFF", 5},
    };
    for (const auto& [text, bytes] : cases) EXPECT_EQ(TopReport::memory(text), bytes) << text;
    EXPECT_EQ(TopReport::memory("1.5G"), 1'610'612'736);
    EXPECT_EQ(TopReport::memory("+-512M+-"), 536'870'912);
    for (const char* none :
         {"", "+-+", "K", "x", "5-K", "nanK", "infG", "1e300G", "\x80", "9223372036854775807K"})
        EXPECT_EQ(TopReport::memory(none), 0) << none;
}

TEST(TopProcesses, FailureOfTheToolIsAnEmptyList) {
    using namespace std::chrono_literals;
    const std::string output = "PID\n1 launchd 0.5 20M 0.1\n";
    ScriptedShell shell(std::vector<CommandResult>{{0, output}, {1, output}});
    TopProcesses processes(shell);
    EXPECT_THAT(processes.snapshot(), ElementsAre(ProcessInfo{1, "launchd", 0.5, 20'971'520, 0.1}));
    EXPECT_THAT(processes.snapshot(), IsEmpty());
    const ScriptedShell::Call call = {
        "/usr/bin/top",
        {"-l", "2", "-s", "1", "-n", "60", "-o", "cpu", "-stats", "pid,command,cpu,mem,power"},
        10s};
    EXPECT_THAT(shell.calls, ElementsAre(call, call));
}

}  // namespace
}  // namespace tavrel
