#include "models/status/MonitorWatcher.h"
#include "support/EventLoop.h"
#include "support/FakeMachine.h"
#include "support/ManualClock.h"

#include <QSignalSpy>
#include <future>
#include <memory>
#include <optional>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

MonitorServices over(Clock& clock, const std::shared_ptr<testing::FakeMachine>& machine) {
    const Machine readers = testing::FakeMachine::readers(machine);
    return {clock, readers.sensors, readers.temperatures, readers.fans, readers.processes, {}};
}

/// A machine whose home lies on a volume that does not answer.
class DeadVolume final : public testing::FakeMachine {
  public:
    std::promise<void> answer;

    DiskSpace diskSpace() const override { return answered_.wait(), space; }

  private:
    std::shared_future<void> answered_ = answer.get_future();
};

TEST(Monitor, SamplesEveryTwoSecondsAndAtOnceForTheFirstWatcher) {
    testing::ManualClock clock;
    const auto shared = std::make_shared<testing::FakeMachine>();
    testing::FakeMachine& machine = *shared;
    machine.devices = {{"Mouse", 80}};
    machine.processes = {{.pid = 7, .name = "worker", .cpu = 93.5}};
    std::optional<Monitor> monitor;
    monitor.emplace(over(clock, shared));
    EXPECT_EQ(monitor->figures().cpuHistory.size(), 1U);
    clock.advance(8.0);
    EXPECT_EQ(monitor->figures().cpuHistory.size(), 5U);
    EXPECT_EQ(monitor->figures().load, std::nullopt);
    EXPECT_TRUE(monitor->figures().processes.empty());

    QSignalSpy listed(&*monitor, &Monitor::processesChanged);
    std::optional<MonitorWatcher> watcher;
    watcher.emplace().setMonitor(&*monitor);
    EXPECT_EQ(monitor->figures().load, 1.25);
    EXPECT_TRUE(listed.wait());
    EXPECT_EQ(monitor->figures().processes, machine.processes);
    EXPECT_TRUE(testing::waitUntil([&] { return monitor->figures().disk == machine.space; }));
    EXPECT_TRUE(testing::waitUntil([&] { return monitor->figures().accessories == machine.devices; }));
    MonitorWatcher second;
    second.setMonitor(&*monitor);
    EXPECT_EQ(monitor->figures().cpuHistory.size(), 6U);
    EXPECT_EQ(monitor->processWatchers(), 2);
    second.setActive(false);
    EXPECT_EQ(monitor->processWatchers(), 1);
    second.setActive(true);
    watcher.reset();
    EXPECT_EQ(monitor->processWatchers(), 1);

    monitor.reset();
    static_cast<void>(machine.takeReads());
    clock.advance(10.0);
    EXPECT_TRUE(machine.takeReads().empty()) << "the clock outlives the monitor";
}

TEST(Monitor, NeitherItsOtherReadsNorItsEndWaitForADeadVolume) {
    testing::ManualClock clock;
    const auto machine = std::make_shared<DeadVolume>();
    {
        Monitor monitor(over(clock, machine));
        QSignalSpy listed(&monitor, &Monitor::processesChanged);
        MonitorWatcher watcher;
        watcher.setMonitor(&monitor);
        EXPECT_FALSE(monitor.hasSeenProcesses());
        EXPECT_TRUE(listed.wait());
        EXPECT_TRUE(monitor.hasSeenProcesses()) << "though there are none";
    }
    machine->answer.set_value();
}

}  // namespace
}  // namespace tavrel
