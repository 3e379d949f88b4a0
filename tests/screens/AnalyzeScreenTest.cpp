#include "core/Files.h"
#include "models/analyze/AnalyzeRows.h"
#include "models/analyze/AnalyzeState.h"
#include "screens/AppDriver.h"

#include <QKeyEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

constexpr int analyzeTab = static_cast<int>(AppTab::analyze);

class AnalyzeScreenTest : public ::testing::Test {
  protected:
    AnalyzeScreenTest() {
        stage_.mac().file("~/Films/holiday.mov", 9'000'000);
        stage_.mac().file("~/Films/raw/take.mov", 4'000'000);
        stage_.mac().file("~/Projects/notes.txt", 2'000'000);
        stage_.window().resize(1200, 760);
        stage_.state().chooseTab(analyzeTab);
        untilMeasured();
    }

    AnalyzeModel& model() { return *stage_.state().analyze()->model(); }
    void untilMeasured() {
        stage_.until("all figures", [this] {
            return model().count() > 0 && model().pendingCount() == 0 && model().knownRefusal(0) != nullptr;
        });
    }
    /// The row of the table with that name.
    QQuickItem* row(const QString& name) {
        const auto rows = stage_.items([&](QQuickItem& item) {
            return item.property("sizeText").isValid() && item.property("name").toString() == name;
        });
        return rows.empty() ? nullptr : rows.front();
    }
    [[nodiscard]] static QPoint middleOf(const QQuickItem& item) {
        return item.mapToScene(QPointF(item.width() / 2, item.height() / 2)).toPoint();
    }
    /// A point of the row with that name: over its name, or over its box.
    QPoint place(const QString& name, double x = 80) {
        QQuickItem* found = row(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found == nullptr ? QPoint() : found->mapToScene({x, found->height() / 2}).toPoint();
    }
    void click(const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&stage_.window(), button, {}, at);
        stage_.settle();
    }
    void tick(const QString& name) { click(place(name, 13)); }
    std::string folder() { return model().currentFolder().filename().native(); }

    testing::AppDriver stage_;
};

TEST_F(AnalyzeScreenTest, ShowsAFolderAndLeadsThroughIt) {
    for (const char* text : {"Whole disk", "ana", "Films", "Projects", "Places", "You are here", "Contents"})
        EXPECT_TRUE(stage_.reads(QString::fromUtf8(text))) << text;

    ASSERT_NE(row(QStringLiteral("Films")), nullptr);
    EXPECT_EQ(row(QStringLiteral("Films"))->property("sizeText").toString(), QStringLiteral("13 MB"));
    EXPECT_TRUE(row(QStringLiteral("Library"))->property("reason").toString() != QString());
    EXPECT_FALSE(row(QStringLiteral("Library"))->property("removable").toBool());

    const auto disk = [this] {
        return stage_.items(
            [](QQuickItem& item) { return item.property("title").toString() == "Whole disk"; });
    };
    const auto before = disk();
    click(place(QStringLiteral("Films")));
    untilMeasured();
    EXPECT_EQ(model().currentFolder(), stage_.mac().at("~/Films"));
    EXPECT_EQ(disk(), before) << "rows made anew lose the keyboard";
    EXPECT_TRUE(stage_.reads(QStringLiteral("holiday.mov")));
    stage_.type(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(model().currentFolder(), stage_.mac().home());
    stage_.type(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(model().currentFolder(), stage_.mac().at("~/Films"));
    untilMeasured();
    stage_.press(QStringLiteral("Whole disk"));
    EXPECT_TRUE(model().isAtRoot());

    stage_.press(QStringLiteral("Large files"));
    stage_.until("an empty result",
                 [this] { return stage_.reads(QStringLiteral("No files over 500 MB here")); });
}

TEST_F(AnalyzeScreenTest, EachButtonOfTheMouseDoesItsOwn) {
    const QString films = QStringLiteral("Films");
    const QString library = QStringLiteral("Library");
    click(place(films), Qt::RightButton);
    EXPECT_TRUE(stage_.reads(QStringLiteral("Show in Finder")));
    EXPECT_TRUE(stage_.reads(QStringLiteral("Move to Trash")));
    stage_.type(Qt::Key_Escape);
    click(place(library), Qt::RightButton);
    EXPECT_TRUE(stage_.reads(QStringLiteral("Show in Finder")));
    EXPECT_FALSE(stage_.reads(QStringLiteral("Move to Trash"))) << "of what is protected";
    stage_.type(Qt::Key_Escape);
    tick(library);
    EXPECT_EQ(model().selectedCount(), 0);
    EXPECT_EQ(folder(), "ana");

    click(place(films));
    untilMeasured();
    ASSERT_EQ(folder(), "Films");
    // The second half of a double click meets the next folder.
    const QPointF at = place(QStringLiteral("raw"));
    for (const auto type :
         {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, stage_.window().mapToGlobal(at), Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        QCoreApplication::sendEvent(&stage_.window(), &event);
    }
    stage_.settle();
    EXPECT_EQ(folder(), "Films");
    click(at.toPoint(), Qt::BackButton);
    EXPECT_EQ(folder(), "ana");
    click(QPoint(600, 700), Qt::ForwardButton);
    EXPECT_EQ(folder(), "Films");
}

TEST_F(AnalyzeScreenTest, TheKeyboardFindsTicksAndOpens) {
    const auto current = [this] {
        const auto rows = stage_.items([](QQuickItem& item) { return item.property("current").toBool(); });
        return rows.empty() ? QString() : rows.front()->property("name").toString();
    };
    stage_.press(QStringLiteral("Measure again"));  // has the keyboard now
    untilMeasured();
    stage_.type(Qt::Key_F);
    EXPECT_EQ(current(), QStringLiteral("Films"));
    stage_.type(Qt::Key_Space);
    EXPECT_EQ(model().selectedCount(), 1) << "no name goes on with a blank";
    stage_.type(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(stage_.reads(QStringLiteral("Show in Finder")));
    stage_.type(Qt::Key_Escape);
    EXPECT_EQ(folder(), "ana");
    stage_.type(Qt::Key_End);
    stage_.type(Qt::Key_F);
    stage_.type(Qt::Key_Return);
    untilMeasured();
    EXPECT_EQ(folder(), "Films");
    EXPECT_EQ(current(), QStringLiteral("holiday.mov")) << "another folder begins at its first row";
    stage_.state().chooseTab(0);
    stage_.settle();
    stage_.type(Qt::Key_4, Qt::ControlModifier);
    untilMeasured();
    stage_.type(Qt::Key_Backspace);
    stage_.type(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(folder(), "Films");
}

TEST_F(AnalyzeScreenTest, ChartAndTableLightUpTogether) {
    QQuickItem* chart =
        stage_.items([](QQuickItem& item) { return item.inherits("tavrel::OrbitChartItem"); })[0];
    const QString films = QString::fromStdString(stage_.mac().at("~/Films").native());
    const QString projects = QString::fromStdString(stage_.mac().at("~/Projects").native());
    QTest::mouseMove(&stage_.window(), middleOf(*row(QStringLiteral("Projects"))));
    stage_.settle();
    EXPECT_EQ(chart->property("focusId").toString(), projects);
    QMetaObject::invokeMethod(chart, "hovered", Q_ARG(QString, films));
    stage_.settle();
    EXPECT_TRUE(row(QStringLiteral("Films"))->property("lit").toBool());
    EXPECT_FALSE(row(QStringLiteral("Projects"))->property("lit").toBool());
    QMetaObject::invokeMethod(chart, "clicked", Q_ARG(QString, films));
    stage_.settle();
    EXPECT_EQ(model().currentFolder(), stage_.mac().at("~/Films"));
}

/// Whatever changes places under the hand of a person, what they meant is what goes.
TEST_F(AnalyzeScreenTest, WhatWasMeantGoesThoughAllRowsChangePlaces) {
    const auto folder = stage_.mac().at("~/Films");
    for (int at = 100; at < 200; ++at) stage_.mac().file("~/Films/" + std::to_string(at), 10'000LL * at);
    model().navigate(folder);
    stage_.until("all rows", [this] { return model().count() == 102; });
    untilMeasured();
    QQuickItem& list = *stage_.items([](QQuickItem& item) { return item.objectName() == "entryList"; })[0];
    auto* rows = qobject_cast<AnalyzeRows*>(list.property("model").value<QObject*>());
    ASSERT_NE(rows, nullptr);
    const auto isThere = [&](const QString& name) { return Files::exists(folder / name.toStdString()); };
    const auto reorder = [&] {
        rows->sortBy(AnalyzeRows::Column::Name);
        stage_.settle();
    };
    const auto untilGone = [&](const QString& name) {
        stage_.until("a removal", [&] { return !model().isRemoving() && !isThere(name); });
    };
    list.forceActiveFocus();
    for (int step = 0; step < 6; ++step) stage_.type(Qt::Key_Down);
    auto* current = list.property("currentItem").value<QQuickItem*>();
    const QString walkedTo = current->property("name").toString();
    reorder();
    current = list.property("currentItem").value<QQuickItem*>();
    EXPECT_EQ(current->property("name").toString(), walkedTo);
    stage_.type(Qt::Key_Delete);
    untilGone(walkedTo);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&stage_.window(), &held);
    EXPECT_FALSE(model().isRemoving());

    const QString underMenu = QStringLiteral("103");
    list.setProperty("contentY", 0);
    stage_.settle();
    ASSERT_NE(row(underMenu), nullptr);
    QTest::mouseClick(&stage_.window(), Qt::RightButton, Qt::NoModifier, middleOf(*row(underMenu)));
    reorder();
    stage_.press(QStringLiteral("Move to Trash"));
    untilGone(underMenu);

    reorder();
    list.setProperty("contentY", 0);
    stage_.settle();
    const QString pressed = QStringLiteral("104");
    ASSERT_NE(row(pressed), nullptr);
    QTest::mouseMove(&stage_.window(), middleOf(*row(pressed)));
    stage_.settle();
    const auto buttons = stage_.items([](QQuickItem& item) {
        return item.inherits("QQuickAbstractButton") && item.property("text") == "Move to Trash";
    });
    ASSERT_EQ(buttons.size(), 1U);
    QTest::mousePress(&stage_.window(), Qt::LeftButton, Qt::NoModifier, middleOf(*buttons[0]));
    reorder();
    QTest::mouseRelease(&stage_.window(), Qt::LeftButton, Qt::NoModifier, middleOf(*buttons[0]));
    untilGone(pressed);
    EXPECT_EQ(model().count(), 99);
}

TEST_F(AnalyzeScreenTest, RemovesToTheTrashAfterAsking) {
    const auto films = stage_.mac().at("~/Films");
    stage_.state().preferences()->setDryRun(true);
    tick(QStringLiteral("Films"));
    EXPECT_TRUE(stage_.reads(QStringLiteral("1 selected · 13 MB")));
    stage_.press(QStringLiteral("Preview removal"));
    EXPECT_TRUE(stage_.reads(QStringLiteral("Move 1 item (13 MB) to the Trash?")))
        << stage_.textWith("Trash?").toStdString();
    stage_.press(QStringLiteral("Move to Trash"));
    stage_.until("a preview", [this] { return model().hasLastRemoval() && !model().isRemoving(); });
    EXPECT_TRUE(Files::exists(films));
    EXPECT_TRUE(stage_.textWith(QStringLiteral("Preview:")).contains(QStringLiteral("would be freed")));

    stage_.state().preferences()->setDryRun(false);
    tick(QStringLiteral("Library"));  // protected
    EXPECT_EQ(model().selectedCount(), 1) << "still Films alone";
    stage_.press(QStringLiteral("Move to Trash"));
    stage_.press(QStringLiteral("Cancel"));
    EXPECT_TRUE(Files::exists(films));
    stage_.press(QStringLiteral("Move to Trash"));
    stage_.press(QStringLiteral("Move to Trash"));
    stage_.until("a removal", [&] { return !Files::exists(films) && !model().isRemoving(); });
    EXPECT_TRUE(Files::exists(stage_.mac().at("~/.Trash/Films/raw/take.mov")));
    EXPECT_TRUE(stage_.reads(QStringLiteral("1 moved to the Trash")))
        << stage_.textWith("moved").toStdString();
    for (const AnalyzeEntry& entry : model().entries()) EXPECT_NE(entry.url, films);
    EXPECT_TRUE(stage_.reads(QStringLiteral("Open Trash")));
}

}  // namespace
}  // namespace tavrel
