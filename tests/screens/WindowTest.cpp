#include "models/clean/CleanState.h"
#include "models/program/LoginItem.h"
#include "screens/AppDriver.h"

#include <QAccessible>
#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel::testing {
namespace {

/// Every screen that can be reached without a scan, and the review of a scan.
std::vector<std::pair<const char*, std::function<void(AppDriver&)>>> screens() {
    const auto tab = [](AppTab wanted) {
        return [wanted](AppDriver& stage) { stage.state().chooseTab(static_cast<int>(wanted)); };
    };
    const auto settings = [](const char* section) {
        return [section](AppDriver& stage) {
            stage.state().setShowSettings(true);
            stage.settle();
            stage.press(section);
        };
    };
    return {
        {"clean", tab(AppTab::clean)},
        {"apps", tab(AppTab::apps)},
        {"optimize", tab(AppTab::optimize)},
        {"analyze", tab(AppTab::analyze)},
        {"status", tab(AppTab::status)},
        {"general", settings("General")},
        {"menu bar", settings("Menu Bar")},
        {"protected", settings("Protected")},
        {"code folders", settings("Code folders")},
        {"review",
         [](AppDriver& stage) {
             stage.state().chooseTab(0);
             CleanListModel& list = *stage.state().clean()->junk();
             list.scan();
             stage.until("the scan's end", [&] { return !list.isWorking(); });
             list.setReviewing(true);
         }},
    };
}

TEST(Window, CutsNoTextAtItsSmallest) {
    AppDriver stage;
    stage.window().resize(stage.window().minimumSize());
    const QRectF inside(QPointF(0, 0), QSizeF(stage.window().minimumSize()));
    for (const auto& [name, open] : screens()) {
        open(stage);
        stage.settle();
        for (QQuickItem* item : stage.items([](QQuickItem& each) { return each.inherits("QQuickText"); })) {
            const QString text = item->property("text").toString();
            const QRectF place = item->mapRectToScene(item->boundingRect());
            if (text.isEmpty() || place.top() > inside.bottom()) continue;  // scrolled out of sight
            EXPECT_FALSE(item->property("truncated").toBool()) << name << ": " << text.toStdString();
            EXPECT_TRUE(place.left() >= -1 && place.right() <= inside.right() + 1)
                << name << ": " << text.toStdString();
        }
    }
}

TEST(Window, NamesEveryControlForAScreenReader) {
    AppDriver stage;
    for (const auto& [name, open] : screens()) {
        open(stage);
        stage.settle();
        const auto controls = stage.items([](QQuickItem& each) {
            return each.inherits("QQuickAbstractButton") || each.inherits("QQuickSpinBox");
        });
        EXPECT_GE(controls.size(), 7U) << name;  // the tabs and two buttons are always there
        for (QQuickItem* control : controls) {
            QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(accessible, nullptr) << name;
            EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
                << name << ": " << control->metaObject()->className();
            EXPECT_NE(accessible->role(), QAccessible::NoRole) << name;
        }
    }
}

TEST(Window, AllSettingsAreWorkedAndSurviveARestart) {
    AppDriver stage;
    stage.press("Settings");
    for (const char* choice : {"Open at login", "Preview mode", "Always use the Trash", "Sound"}) {
        stage.press(choice);
    }
    stage.type(Qt::Key_Return);
    EXPECT_TRUE(stage.state().preferences()->values().sounds) << "Return works a switch as well";
    stage.type(Qt::Key_Return);
    stage.press("Menu Bar");
    stage.press("Battery");
    stage.press("Code folders");
    stage.press("~/Developer");
    stage.press("Remove");
    const PreferenceValues chosen = stage.state().preferences()->values();
    EXPECT_TRUE(chosen.dryRun);
    EXPECT_TRUE(chosen.alwaysTrash);
    EXPECT_FALSE(chosen.sounds);
    EXPECT_EQ(chosen.menuBarMetrics.back(), MenuBarMetric::battery);
    EXPECT_EQ(std::count(chosen.projectRoots.begin(), chosen.projectRoots.end(), "~/Developer"), 0);
    const bool opensAtLogin = stage.state().loginItem()->isEnabled();

    stage.restart();
    EXPECT_EQ(stage.state().preferences()->values(), chosen);
    EXPECT_EQ(stage.state().loginItem()->isEnabled(), opensAtLogin);
    EXPECT_TRUE(opensAtLogin);
}

TEST(Window, KeysGoFromTabToTabAndOutOfTheSettings) {
    AppDriver stage;
    stage.type(Qt::Key_4, Qt::ControlModifier);
    EXPECT_EQ(stage.state().tab(), AppTab::analyze);
    EXPECT_TRUE(stage.reads("You are here"));
    stage.type(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_TRUE(stage.reads("Preview mode"));
    stage.type(Qt::Key_4, Qt::ControlModifier);
    EXPECT_FALSE(stage.state().showSettings());
    stage.type(Qt::Key_Comma, Qt::ControlModifier);
    stage.type(Qt::Key_Escape);
    EXPECT_FALSE(stage.state().showSettings());
}

TEST(Window, WorkShowsOnItsTabAndGoesOnBehindAnother) {
    AppDriver stage;
    stage.press("Scan");
    EXPECT_TRUE(stage.state().isBusy(AppTab::clean) ||
                stage.state().clean()->junk()->stage() == CleanListModel::Stage::Ready);
    stage.press("Status");
    stage.until("the scan's end", [&] { return !stage.state().clean()->junk()->isWorking(); });
    stage.press("Clean");
    EXPECT_TRUE(stage.reads("Review results")) << "what was scanned is lost with the screen";
}

}  // namespace
}  // namespace tavrel::testing
