#include "screens/Stage.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

constexpr int statusTab = static_cast<int>(AppTab::status);

/// The names of the processes on show, from the top.
QStringList names(testing::Stage& stage) {
    QStringList all;
    for (QQuickItem* row : stage.items([](QQuickItem& item) { return item.property("pid").isValid(); }))
        all.append(row->property("name").toString());
    return all;
}

class StatusScreenTest : public ::testing::Test {
  protected:
    StatusScreenTest() {
        auto& machine = stage_.machine();
        machine.work(5, 95);
        machine.cell = {.percent = 76,
                        .charging = false,
                        .pluggedIn = false,
                        .minutesLeft = 125,
                        .cycles = 211,
                        .health = 93};
        machine.fans.list = {{.rpm = 1480, .max = 4000}};
        machine.memoryNow = {.used = 12'000, .total = 16'000, .swap = 2'000'000, .pressure = 2};
        machine.devices = {{"MX Mouse", 40}};
        for (int i = 0; i < 30; ++i) {
            machine.processes.push_back({.pid = 100 + i,
                                         .name = "worker" + std::to_string(i),
                                         .cpu = 90.0 - i,
                                         .memory = 1'000'000 + i,
                                         .power = 0.5});
        }
        machine.processes.push_back({.pid = 99, .name = "WindowServer", .cpu = 95});
    }

    /// With room for the whole page.
    void open() {
        stage_.window().resize(1000, 1200);
        stage_.state().chooseTab(statusTab);
        stage_.until("processes", [this] { return !names(stage_).isEmpty(); });
    }

    testing::Stage stage_;
};

TEST_F(StatusScreenTest, ShowsEveryFigureAndWatchesOnlyWhileItIsSeen) {
    Monitor* monitor = stage_.state().monitor();
    EXPECT_EQ(monitor->processWatchers(), 0);
    open();
    EXPECT_EQ(monitor->processWatchers(), 1);
    const QStringList texts = stage_.texts();
    for (const QString& text :
         QStringList{"Excellent", "75", "Pressure elevated · swap 2 MB", "210 GB", "Wi-Fi", "54", "76",
                     "2h 5m left", "93% health · 211 cycles", "MX Mouse", "40 %", "1480", "Load 37%", "95.0%",
                     "WindowServer", "Fan control unavailable on this Mac", "idle · load 1.2 · 2 cores"}) {
        EXPECT_TRUE(texts.contains(text)) << text.toStdString();
    }
    EXPECT_EQ(names(stage_).size(), 12);

    stage_.state().motion()->setHidden(true);
    stage_.settle();
    EXPECT_EQ(monitor->processWatchers(), 0);
    stage_.state().motion()->setHidden(false);
    stage_.settle();
    EXPECT_EQ(monitor->processWatchers(), 1);
    stage_.state().chooseTab(0);
    stage_.until("nobody watching", [&] { return monitor->processWatchers() == 0; });
}

TEST_F(StatusScreenTest, PinsSortsAndExplains) {
    open();
    EXPECT_EQ(names(stage_).first(), QStringLiteral("WindowServer"));
    const auto pin = [this](const QString& name) { stage_.state().preferences()->togglePinned(name); };
    pin(QStringLiteral("worker29"));
    pin(QStringLiteral("nobody"));
    stage_.settle();
    EXPECT_EQ(names(stage_).first(), QStringLiteral("worker29"));
    EXPECT_EQ(names(stage_).size(), 12);

    stage_.press(QStringLiteral("Memory"));
    EXPECT_EQ(names(stage_)[1], QStringLiteral("worker28")) << "the largest of those that are not pinned";
    stage_.press(QStringLiteral("CPU"));
    const QString sentence =
        QStringLiteral("Draws everything on screen. Busy with many windows, displays or animations.");
    EXPECT_FALSE(stage_.reads(sentence));
    stage_.press(QStringLiteral("What is this?"));
    EXPECT_TRUE(stage_.reads(sentence));
    stage_.type(Qt::Key_Escape);
    EXPECT_FALSE(stage_.reads(sentence));
}

}  // namespace
}  // namespace tavrel
