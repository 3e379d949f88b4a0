#include "platform/linux/figures/ProcStat.h"
#include "platform/linux/processes/ProcProcesses.h"
#include "support/Sandbox.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Sandbox;

/// A line as the kernel writes it.
std::string line(const std::string& pid, const std::string& name, const std::string& user,
                 const std::string& system, const std::string& start, const std::string& pages) {
    return pid + " (" + name + ") S 1 1 1 0 -1 4194304 9 9 9 9 " + user + " " + system + " 77 77 20 0 1 0 " +
           start + " 999999 " + pages + " 18446744073709551615 1 1 0\n";
}

TEST(ProcStat, TheNameMayHoldAnything) {
    for (const std::string name : {"bash", "", "a) S 1 (b", "(udev-worker)", "new\nline", ") (", "\xFF"}) {
        const std::string text = line("7", name, "30", "12", "500", "25");
        const auto stat = procStat(text);
        ASSERT_TRUE(stat) << name;
        EXPECT_EQ(stat->name, name);
        EXPECT_THAT((std::array{stat->used, stat->start}), ElementsAre(42U, 500U));
        EXPECT_EQ(stat->pages, 25);

        const std::size_t enough = text.find("25 ") + 2;
        for (std::size_t length = 0; length <= enough; ++length)
            EXPECT_FALSE(procStat(text.substr(0, length))) << text.substr(0, length);
    }
    for (const char* used : {"18446744073709551616", "-1", "x", ""})
        EXPECT_FALSE(procStat(line("7", "a", used, "1", "1", "1"))) << used;
}

/// A folder like /proc of a machine with 4 processors, and a clock that only waiting moves.
class ProcProcessesTest : public ::testing::Test {
  protected:
    void process(int pid, const std::string& name, long used, long start = 10,
                 const std::string& pages = "1") {
        sandbox.text(
            "proc/" + std::to_string(pid) + "/stat",
            line(std::to_string(pid), name, std::to_string(used), "0", std::to_string(start), pages));
    }
    /// The processes after `change` took place between the two looks.
    std::vector<ProcessInfo> snapshotAfter(const std::function<void()>& change) {
        meanwhile = change;
        return processes.snapshot();
    }
    [[nodiscard]] static std::map<int, double> uses(const std::vector<ProcessInfo>& listed) {
        std::map<int, double> found;
        for (const ProcessInfo& each : listed) found[each.pid] = each.cpu;
        return found;
    }

    Sandbox sandbox;
    std::chrono::nanoseconds time = 1h;
    std::vector<std::chrono::nanoseconds> waits;
    std::function<void()> meanwhile = [] {};
    ProcProcesses processes{sandbox.folder("proc"),
                            {.now = [this] { return time; },
                             .wait =
                                 [this](std::chrono::nanoseconds span) {
                                     waits.push_back(span);
                                     time += span;
                                     meanwhile();
                                 }},
                            {.ticksPerSecond = 100, .pageSize = 4096, .processors = 4}};
};

TEST_F(ProcProcessesTest, UseIsWhatWasGainedInTheMeasuredTime) {
    process(1, "init", 1000, 1, "3");
    process(20, "busy", 50);
    process(3, "idle", 7);
    sandbox.text("proc/4/maps", "gone before it could be read");
    const auto listed = snapshotAfter([this] {
        time += 1s;  // the machine was slow to wake
        process(1, "init", 1050, 1, "3");
        process(20, "busy", 350);
    });
    EXPECT_THAT(listed,
                ElementsAre(ProcessInfo{20, "busy", 150, 4096, 37.5}, ProcessInfo{1, "init", 25, 12288, 6.25},
                            ProcessInfo{3, "idle", 0, 4096, 0}));
}

TEST_F(ProcProcessesTest, ARecentLookSparesTheWait) {
    process(1, "a", 0);
    EXPECT_EQ(processes.snapshot().size(), 1U);
    EXPECT_THAT(waits, ElementsAre(1s));

    time += 8s;
    process(1, "a", 400);
    EXPECT_THAT(uses(processes.snapshot()), ElementsAre(std::pair(1, 50.0)));
    EXPECT_THAT(waits, ElementsAre(1s));

    time += 400ms;  // too near to tell anything
    EXPECT_THAT(uses(snapshotAfter([this] { process(1, "a", 500); })), ElementsAre(std::pair(1, 100.0)));
    EXPECT_THAT(waits, ElementsAre(1s, 600ms));

    time += 20s;  // too far to tell of the present
    process(1, "a", 2000);
    EXPECT_THAT(uses(processes.snapshot()), ElementsAre(std::pair(1, 0.0)));
    EXPECT_THAT(waits, ElementsAre(1s, 600ms, 1s));
}

TEST_F(ProcProcessesTest, OnlyTheSameProcessIsCompared) {
    process(1, "init", 1000, 1);
    process(5, "old", 50'000, 90);
    process(6, "back", 9000, 20);
    process(8, "wild", 0, 30);
    const auto listed = snapshotAfter([this] {
        process(5, "reuses the number", 20, 100);
        process(6, "back", 8000, 20);  // its counter has gone back
        process(7, "new", 30, 101);
        process(8, "wild", std::numeric_limits<long>::max(), 30, "9223372036854775807");
        process(9, "overlooked before", 70'000, 40);
    });
    EXPECT_THAT(uses(listed), ElementsAre(std::pair(1, 0.0), std::pair(5, 20.0), std::pair(6, 0.0),
                                          std::pair(7, 30.0), std::pair(8, 400.0), std::pair(9, 0.0)));
    EXPECT_TRUE(std::all_of(listed.begin(), listed.end(), [](const auto& each) { return each.memory > 0; }));
}

TEST_F(ProcProcessesTest, ListsTheBusiestAndTheLargest) {
    for (int pid = 1; pid <= 100; ++pid) process(pid, "p", 0, 10, std::to_string(pid));
    const auto listed = snapshotAfter([this] {
        for (int pid = 1; pid <= 45; ++pid) process(pid, "p", pid / 2, 10, std::to_string(pid));
    });
    std::vector<int> expected;
    for (int pid = 45; pid >= 6; --pid) expected.push_back(pid);
    for (int pid = 100; pid >= 81; --pid) expected.push_back(pid);
    std::vector<int> pids(listed.size());
    std::transform(listed.begin(), listed.end(), pids.begin(), [](const auto& each) { return each.pid; });
    EXPECT_EQ(pids, expected);
}

TEST_F(ProcProcessesTest, ACutNameIsMadeWhole) {
    using namespace std::string_literals;
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"systemd-journal", "/usr/lib/systemd/systemd-journald\0--x=/y/z\0"s, "systemd-journald"},
        {"Isolated Web Co", "/usr/lib/firefox/firefox\0-contentproc\0"s, "Isolated Web Co"},
        {"chromium-browse", "/opt/chromium-browser/chromium-browser --type=renderer --lang=a/b",
         "chromium-browser"},
        {"short", "/bin/short-but-longer\0"s, "short"},
        {"kworker/u8:1-ev", "", "kworker/u8:1-ev"},
        {"fourteen-byte-\xC3", "fourteen-byte-\u00E4h", "fourteen-byte-\u00E4h"},
        {"fourteen-byte-\xC3", "", "fourteen-byte-\uFFFD"},
    };
    for (const auto& [kept, commandLine, name] : cases) {
        process(1, kept, 0);
        sandbox.text("proc/1/cmdline", commandLine);
        time += 30s;
        EXPECT_THAT(processes.snapshot(), ElementsAre(ProcessInfo{1, name, 0, 4096, 0}));
    }
}

TEST_F(ProcProcessesTest, FailureIsAnEmptyListThatNothingIsMeasuredBy) {
    EXPECT_THAT(snapshotAfter([this] { process(1, "a", 50'000); }), IsEmpty());
    EXPECT_THAT(uses(processes.snapshot()), ElementsAre(std::pair(1, 0.0)));
    EXPECT_THAT(snapshotAfter([this] { std::filesystem::remove_all(sandbox.path("proc/1")); }), IsEmpty());
}

}  // namespace
}  // namespace tavrel
