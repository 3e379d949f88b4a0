#include "monitoring/Processes.h"
#include "profiles/Profile.h"

#include <algorithm>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;

std::vector<int> pids(const std::vector<ProcessInfo>& processes) {
    std::vector<int> found(processes.size());
    std::transform(processes.begin(), processes.end(), found.begin(),
                   [](const auto& each) { return each.pid; });
    return found;
}

TEST(Processes, RowsStandByTheFigureAskedFor) {
    const std::vector<ProcessInfo> processes = {
        {1, "a", 5, 300, 0.5}, {2, "b", 9, 100, 0.1}, {3, "c", 5, 200, 0.9}, {4, "d", 0, 300, 0.5}};
    EXPECT_THAT(pids(processRows(processes, ProcessSort::cpu, {})), ElementsAre(2, 1, 3, 4));
    EXPECT_THAT(pids(processRows(processes, ProcessSort::memory, {})), ElementsAre(1, 4, 3, 2));
    EXPECT_THAT(pids(processRows(processes, ProcessSort::energy, {})), ElementsAre(3, 1, 4, 2));
}

TEST(Processes, PinnedRowsComeFirstWhereverTheyFall) {
    std::vector<ProcessInfo> processes;
    for (int pid = 1; pid <= 30; ++pid) processes.push_back({pid, "p" + std::to_string(pid), 100.0 - pid});
    const std::vector<std::string> pinned = {"p30", "p20", "not running"};
    EXPECT_THAT(pids(processRows(processes, ProcessSort::cpu, pinned)),
                ElementsAre(20, 30, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
}

TEST(Processes, ANoteBelongsToANameOrToItsStart) {
    constexpr ProcessNote notes[] = {
        {"mds", "whole"}, {"kworker/", "start", ProcessNote::Match::start}, {"Own Helper", "own"}};
    const std::string helper = "A helper process of an app — usually a browser tab, renderer or extension.";
    const std::pair<std::string, std::optional<std::string>> cases[] = {
        {"mds", "whole"},           {"mds_stores", std::nullopt},
        {"MDS", std::nullopt},      {"kworker/0:1-events", "start"},
        {"kworker", std::nullopt},  {"Own Helper", "own"},
        {"Browser Helper", helper}, {"Browser Helper (Renderer)", helper},
        {"Helpers", std::nullopt},  {"", std::nullopt},
    };
    for (const auto& [name, sentence] : cases) EXPECT_EQ(explanation(notes, name), sentence) << name;
}

TEST(Processes, EveryFamilyExplainsItsOwn) {
    const Profile mac = Profiles::macos("/", "/Users/ana");
    const Profile linux = Profiles::linux("/", "/home/ana");
    EXPECT_TRUE(explanation(mac.texts.processNotes, "WindowServer"));
    EXPECT_FALSE(explanation(linux.texts.processNotes, "WindowServer"));
    // Names as the kernel keeps them, and as their programs have them.
    for (const char* name :
         {"systemd-journal", "systemd-journald", "tracker-miner-f", "kworker/u8:1", "Xwayland"})
        EXPECT_TRUE(explanation(linux.texts.processNotes, name)) << name;
    for (const Profile& profile : {mac, linux}) {
        for (auto note = profile.texts.processNotes.begin(); note != profile.texts.processNotes.end();
             ++note) {
            const auto reached = explanation({profile.texts.processNotes.begin(), note}, note->name);
            EXPECT_EQ(reached, std::nullopt) << note->name << " never has its turn";
        }
    }
}

}  // namespace
}  // namespace tavrel
