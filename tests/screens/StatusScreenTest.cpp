#include "models/show/MotionPause.h"
#include "models/status/StatusState.h"
#include "screens/AppDriver.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlIncubationController>
#include <memory>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

constexpr int statusTab = static_cast<int>(AppTab::status);

/// The names of the processes on show, from the top.
QStringList names(testing::AppDriver& stage) {
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

    testing::AppDriver stage_;
};

TEST_F(StatusScreenTest, ShowsEveryFigureAndWatchesOnlyWhileItIsSeen) {
    Monitor* monitor = stage_.state().status()->monitor();
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

TEST_F(StatusScreenTest, AViewThatIsGivenUpHalfMadeWatchesNoMore) {
    QQmlEngine engine;
    QQmlIncubationController steps;
    engine.setIncubationController(&steps);
    QQmlComponent component(&engine);
    component.setData(R"(import QtQuick
        import Tavrel.Models
        Loader {
            id: loader
            required property Monitor monitor
            active: false
            asynchronous: true
            sourceComponent: Item {
                MonitorWatcher { monitor: loader.monitor }
                Repeater { model: 500; Item {} }
            }
        })",
                      {});
    Monitor* monitor = stage_.state().status()->monitor();
    const std::unique_ptr<QObject> loader(
        component.createWithInitialProperties({{QStringLiteral("monitor"), QVariant::fromValue(monitor)}}));
    ASSERT_NE(loader, nullptr) << component.errorString().toStdString();
    for (const bool whole : {false, true}) {
        loader->setProperty("active", true);
        const auto wanted = [&] {
            return whole ? !steps.incubatingObjectCount() : monitor->processWatchers() > 0;
        };
        while (!wanted()) steps.incubateFor(1);
        EXPECT_EQ(monitor->processWatchers(), 1);
        EXPECT_EQ(steps.incubatingObjectCount() > 0, !whole);
        loader->setProperty("active", false);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(monitor->processWatchers(), 0);
    }
}

TEST_F(StatusScreenTest, PinsSortsAndExplains) {
    open();
    EXPECT_EQ(names(stage_).first(), QStringLiteral("WindowServer"));
    const QString last = names(stage_).last();
    stage_.press(QStringLiteral("Pin to top"));
    EXPECT_EQ(names(stage_).first(), last);
    EXPECT_EQ(names(stage_).size(), 12);

    stage_.press(QStringLiteral("Memory"));
    EXPECT_EQ(names(stage_)[1], QStringLiteral("worker29")) << "the largest of those that are not pinned";
    stage_.press(QStringLiteral("CPU"));
    stage_.press(QStringLiteral("Unpin"));
    EXPECT_EQ(names(stage_).last(), last);
    const QString sentence =
        QStringLiteral("Draws everything on screen. Busy with many windows, displays or animations.");
    EXPECT_FALSE(stage_.reads(sentence));
    stage_.press(QStringLiteral("What is this?"));
    EXPECT_TRUE(stage_.reads(sentence));
    stage_.press(QStringLiteral("What is this?"));
    EXPECT_FALSE(stage_.reads(sentence)) << "what the press has closed it opens again";

    stage_.press(QStringLiteral("What is this?"));
    const auto togglePins = [this](int from, int to) {
        for (int i = from; i < to; ++i)
            stage_.state().preferences()->togglePinned(QStringLiteral("worker%1").arg(i));
        stage_.settle();
    };
    togglePins(0, 1);
    EXPECT_EQ(names(stage_)[1], QStringLiteral("WindowServer"));
    EXPECT_TRUE(stage_.reads(sentence)) << "it stays with its process";
    togglePins(1, 12);
    EXPECT_FALSE(stage_.reads(sentence)) << "no row has its process";
    togglePins(0, 12);
    EXPECT_EQ(names(stage_).first(), QStringLiteral("WindowServer"));
    EXPECT_FALSE(stage_.reads(sentence)) << "nobody asked for it anew";
    stage_.press(QStringLiteral("What is this?"));
    stage_.type(Qt::Key_Escape);
    EXPECT_FALSE(stage_.reads(sentence));
}

TEST_F(StatusScreenTest, KeepsItsWordsWithinTheirCardsInTheLeastWindow) {
    stage_.machine().net = Sensors::NetworkBytes{};
    open();
    stage_.window().resize(stage_.window().minimumSize());
    stage_.until("a large rate", [this] {
        stage_.machine().net->received += 5'000'000'000;
        stage_.machine().net->sent += 5'000'000'000;
        return stage_.textWith(QStringLiteral("↑")).contains(QStringLiteral("GB/s"));
    });
    int seen = 0;
    for (QQuickItem* text : stage_.items([](QQuickItem& item) { return item.inherits("QQuickText"); })) {
        for (QQuickItem* card = text->parentItem(); card != nullptr; card = card->parentItem()) {
            if (!QString::fromLatin1(card->metaObject()->className()).contains(QStringLiteral("Card_")))
                continue;
            const QRectF place = text->mapRectToItem(card, text->boundingRect());
            EXPECT_TRUE(place.left() >= 0 && place.right() <= card->width())
                << text->property("text").toString().toStdString();
            ++seen;
        }
    }
    EXPECT_GT(seen, 30);
}

TEST_F(StatusScreenTest, KeysScrollAndBringWhatTheyReachIntoSight) {
    open();
    stage_.window().resize(stage_.window().minimumSize());
    stage_.settle();
    const auto pins = [this] {
        return stage_.items([](QQuickItem& item) {
            return item.inherits("QQuickAbstractButton") &&
                   item.property("text") == QStringLiteral("Pin to top");
        });
    };
    const auto bottom = [](QQuickItem& item) { return item.mapToScene(QPointF(0, item.height())).y(); };
    const double start = bottom(*pins().back());
    EXPECT_GT(start, stage_.window().height());
    stage_.type(Qt::Key_End);
    EXPECT_LT(bottom(*pins().back()), stage_.window().height());
    stage_.type(Qt::Key_PageUp);
    stage_.type(Qt::Key_Home);
    EXPECT_EQ(bottom(*pins().back()), start);

    const auto reached = [&] { return stage_.window().activeFocusItem() == pins().back(); };
    for (int i = 0; i < 60 && !reached(); ++i) stage_.type(Qt::Key_Tab);
    ASSERT_TRUE(reached());
    EXPECT_LT(bottom(*pins().back()), stage_.window().height());
}

}  // namespace
}  // namespace tavrel
