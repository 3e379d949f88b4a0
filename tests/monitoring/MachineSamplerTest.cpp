#include "monitoring/CpuUsage.h"
#include "monitoring/MachineSampler.h"
#include "support/FakeMachine.h"

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;
using Reads = std::map<std::string, int>;

/// A sampler over a machine of the test, stepped two seconds at a time.
class MachineSamplerTest : public ::testing::Test {
  protected:
    MachineSampler::Due step(double seconds = 2) {
        now_ += std::chrono::nanoseconds(static_cast<std::int64_t>(seconds * 1e9));
        return sampler_.sample(now_);
    }

    testing::FakeMachine machine_;
    Instant now_{std::chrono::hours(1000)};
    MachineSampler sampler_{{machine_, machine_, machine_.fans}, now_};
};

TEST_F(MachineSamplerTest, ReadsNextToNothingWhileNobodyWatches) {
    static_cast<void>(machine_.takeReads());
    int measured = 0;
    for (int tick = 0; tick < 45; ++tick) {
        const auto due = step();
        measured += due.diskSpace ? 1 : 0;
        EXPECT_FALSE(due.accessories || due.bluetooth || due.processes);
        sampler_.setDiskSpace(Sensors::DiskSpace{});
    }
    EXPECT_EQ(measured, 3);  // at 0, 15 and 30
    EXPECT_EQ(machine_.takeReads(), (Reads{{"cpu", 45}, {"memory", 45}, {"network", 45}}));

    sampler_.setMetrics({MenuBarMetric::gpu, MenuBarMetric::temperature, MenuBarMetric::battery});
    for (int tick = 0; tick < 5; ++tick) static_cast<void>(step());
    EXPECT_EQ(
        machine_.takeReads(),
        (Reads{{"cpu", 5}, {"memory", 5}, {"network", 5}, {"gpu", 5}, {"temperature", 5}, {"battery", 1}}));
}

TEST_F(MachineSamplerTest, TheFirstWatcherStartsEverythingAtOnce) {
    for (int tick = 0; tick < 7; ++tick) static_cast<void>(step());
    sampler_.setDiskSpace(Sensors::DiskSpace{});
    static_cast<void>(machine_.takeReads());

    EXPECT_TRUE(sampler_.setWatchers(1));
    const auto due = step(0.1);
    EXPECT_TRUE(due.diskSpace && due.accessories && due.bluetooth && due.processes);
    EXPECT_THAT(
        machine_.takeReads(),
        UnorderedElementsAre(Pair("cpu", 1), Pair("memory", 1), Pair("gpu", 1), Pair("diskIO", 1),
                             Pair("network", 1), Pair("temperature", 1), Pair("thermal", 1), Pair("load", 1),
                             Pair("battery", 1), Pair("fans", 1), Pair("connection", 1)));
    EXPECT_FALSE(sampler_.setWatchers(2)) << "the second watcher is owed nothing";
}

TEST_F(MachineSamplerTest, BlockingReadsKeepTheirPaceAndNeverOverlap) {
    static_cast<void>(sampler_.setWatchers(1));
    std::vector<int> disk;
    std::vector<int> accessories;
    std::vector<int> bluetooth;
    std::vector<int> processes;
    for (int tick = 0; tick < 70; ++tick) {
        const auto due = step();
        if (due.diskSpace) disk.push_back(tick);
        if (due.accessories) accessories.push_back(tick);
        if (due.bluetooth) bluetooth.push_back(tick);
        if (due.processes) processes.push_back(tick);
        if (tick < 20) sampler_.setProcesses(std::vector<ProcessInfo>{});
        if (tick < 10) sampler_.setDiskSpace(Sensors::DiskSpace{});
        if (tick < 15) sampler_.setAccessories({});
        if (tick < 30) sampler_.setBluetooth({});
    }
    EXPECT_THAT(disk, ElementsAre(0, 5, 10));  // the third never came back
    EXPECT_THAT(accessories, ElementsAre(0, 5, 10, 15));
    EXPECT_THAT(bluetooth, ElementsAre(0, 30));
    EXPECT_THAT(processes, ElementsAre(0, 4, 8, 12, 16, 20));

    sampler_.setBluetooth({});
    static_cast<void>(machine_.takeReads());
    EXPECT_TRUE(step(60).bluetooth) << "the pace is one of time, however many samples that takes";
    for (int tick = 0; tick < 10; ++tick) EXPECT_FALSE(step(0.5).bluetooth);
    EXPECT_EQ(machine_.takeReads()["battery"], 1);
}

TEST_F(MachineSamplerTest, RatesNeedTwoReadingsAndSurviveResets) {
    static_cast<void>(sampler_.setWatchers(1));
    const MachineFigures& figures = sampler_.figures();
    machine_.io = {.read = 1'000'000, .write = 0};
    static_cast<void>(step());
    EXPECT_EQ(figures.diskRead, std::nullopt) << "the first reading only seeds";
    machine_.io = {.read = 5'000'000, .write = 100};
    machine_.net = {.received = 3000, .sent = 500};
    static_cast<void>(step());
    EXPECT_EQ(figures.diskRead, 2'000'000);
    EXPECT_EQ(figures.diskWrite, 50);
    EXPECT_EQ(figures.download, 1500);
    EXPECT_EQ(figures.upload, 250);

    machine_.io = {.read = 10, .write = 100};  // a device has gone
    machine_.net = {.received = 10, .sent = 700};
    static_cast<void>(step());
    EXPECT_EQ(figures.diskRead, 0);
    EXPECT_EQ(figures.download, 0);
    EXPECT_EQ(figures.upload, 100);

    machine_.io.reset();  // unreadable for once: the next reading seeds anew
    static_cast<void>(step());
    machine_.io = {.read = 900'000'000, .write = 900'000'000};
    static_cast<void>(step());
    EXPECT_EQ(figures.diskRead, 0);

    static_cast<void>(sampler_.setWatchers(0));
    static_cast<void>(step());
    machine_.io = {.read = 9'000'000'000'000, .write = 0};
    static_cast<void>(sampler_.setWatchers(1));
    static_cast<void>(step());
    EXPECT_EQ(figures.diskRead, 0) << "no spike of what passed while nobody watched";

    machine_.net->received += 1000;
    static_cast<void>(step(-5));  // a clock that jumps
    EXPECT_EQ(figures.download, 2000) << "counts as half a second";
}

TEST_F(MachineSamplerTest, UsageIsHeldWhereTicksTellNothing) {
    machine_.work(50, 150);
    static_cast<void>(step());
    EXPECT_EQ(sampler_.figures().cpu, 0.25);
    static_cast<void>(step());  // no tick passed
    EXPECT_EQ(sampler_.figures().cpu, 0.25);
    machine_.ticks.pop_back();  // a processor went
    machine_.work(100, 0);
    static_cast<void>(step());
    EXPECT_EQ(sampler_.figures().cpu, 0.25);
    machine_.ticks[0].user -= 20;  // a counter went back
    static_cast<void>(step());
    EXPECT_EQ(sampler_.figures().cpu, 0.25);
    machine_.work(10, 0);
    static_cast<void>(step());
    EXPECT_EQ(sampler_.figures().cpu, 1);

    const Sensors::CPUTicks nearlyOver = {.user = ~0ULL - 4};
    EXPECT_EQ(cpuUsage({nearlyOver}, {{.user = 5, .idle = 10}}), 0.5) << "a counter that wraps goes on";
    EXPECT_EQ(cpuUsage({}, {}), std::nullopt);
}

TEST_F(MachineSamplerTest, KeepsTheLastFortyValuesAndMergesAccessories) {
    static_cast<void>(sampler_.setWatchers(1));
    sampler_.setBluetooth({{"Buds", 40}, {"Mouse", 12}});
    sampler_.setAccessories({{"Mouse", 80}});
    for (int tick = 0; tick < 60; ++tick) {
        machine_.gpu = tick < 10 ? std::optional(0.5) : std::nullopt;
        machine_.memoryNow.used = tick;
        machine_.memoryNow.total = 100;
        static_cast<void>(step());
    }
    const MachineFigures& figures = sampler_.figures();
    EXPECT_EQ(figures.memoryHistory.size(), 40U);
    EXPECT_DOUBLE_EQ(figures.memoryHistory.front(), 0.2);
    EXPECT_DOUBLE_EQ(figures.memoryHistory.back(), 0.59);
    EXPECT_EQ(figures.gpuHistory.size(), 10U);
    EXPECT_EQ(figures.gpu, std::nullopt);
    EXPECT_THAT(figures.accessories,
                ElementsAre(Sensors::Accessory{"Mouse", 80}, Sensors::Accessory{"Buds", 40}));
}

}  // namespace
}  // namespace tavrel
