#include "monitoring/Monitor.h"
#include "support/EventLoop.h"
#include "support/FakeMachine.h"
#include "support/ManualClock.h"

#include <QSignalSpy>
#include <optional>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(Monitor, SamplesEveryTwoSecondsAndAtOnceForTheFirstWatcher) {
    testing::ManualClock clock;
    testing::FakeMachine machine;
    machine.devices = {{"Mouse", 80}};
    machine.processes = {{.pid = 7, .name = "worker", .cpu = 93.5}};
    std::optional<Monitor> monitor;
    monitor.emplace(MonitorServices{clock, {machine, machine, machine.fans}, machine});
    EXPECT_EQ(monitor->figures().cpuHistory.size(), 1U);
    clock.advance(8.0);
    EXPECT_EQ(monitor->figures().cpuHistory.size(), 5U);
    EXPECT_EQ(monitor->figures().load, std::nullopt);
    EXPECT_TRUE(monitor->figures().processes.empty());

    QSignalSpy listed(&*monitor, &Monitor::processesChanged);
    monitor->setProcessWatchers(1);
    EXPECT_EQ(monitor->figures().load, 1.25);
    EXPECT_TRUE(listed.wait());
    EXPECT_EQ(monitor->figures().processes, machine.processes);
    EXPECT_EQ(monitor->figures().disk, machine.space);
    EXPECT_TRUE(testing::waitUntil([&] { return monitor->figures().accessories == machine.devices; }));
    monitor->setProcessWatchers(2);
    EXPECT_EQ(monitor->figures().cpuHistory.size(), 6U);
    monitor->setProcessWatchers(-1);
    EXPECT_EQ(monitor->processWatchers(), 2);

    monitor.reset();
    static_cast<void>(machine.takeReads());
    clock.advance(10.0);
    EXPECT_TRUE(machine.takeReads().empty()) << "the clock outlives the monitor";
}

}  // namespace
}  // namespace tavrel
