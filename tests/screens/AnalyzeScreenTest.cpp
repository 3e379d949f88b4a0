#include "core/Files.h"
#include "screens/Stage.h"

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

    AnalyzeModel& model() { return *stage_.state().analyze(); }
    void untilMeasured() {
        stage_.until("all figures", [this] { return model().count() > 0 && model().pendingCount() == 0; });
    }
    /// The row of the table with that name.
    QQuickItem* row(const QString& name) {
        const auto rows = stage_.items([&](QQuickItem& item) {
            return item.property("sizeText").isValid() && item.property("name").toString() == name;
        });
        return rows.empty() ? nullptr : rows.front();
    }
    void select(const QString& name) {
        ASSERT_NE(row(name), nullptr) << name.toStdString();
        QMetaObject::invokeMethod(row(name), "toggled");
        stage_.settle();
    }

    testing::Stage stage_;
};

TEST_F(AnalyzeScreenTest, ShowsAFolderAndLeadsThroughIt) {
    for (const char* text : {"Whole disk", "ana", "Films", "Projects", "Places", "You are here", "Contents"})
        EXPECT_TRUE(stage_.reads(QString::fromUtf8(text))) << text;

    ASSERT_NE(row(QStringLiteral("Films")), nullptr);
    EXPECT_EQ(row(QStringLiteral("Films"))->property("sizeText").toString(), QStringLiteral("13 MB"));
    EXPECT_TRUE(row(QStringLiteral("Library"))->property("reason").toString() != QString());
    EXPECT_FALSE(row(QStringLiteral("Library"))->property("removable").toBool());

    QMetaObject::invokeMethod(row(QStringLiteral("Films")), "clicked");
    untilMeasured();
    EXPECT_EQ(model().currentFolder(), stage_.mac().at("~/Films"));
    EXPECT_TRUE(stage_.reads(QStringLiteral("holiday.mov")));
    stage_.type(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(model().currentFolder(), stage_.mac().home());
    stage_.type(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(model().currentFolder(), stage_.mac().at("~/Films"));
    untilMeasured();
    stage_.press(QStringLiteral("Whole disk"));
    EXPECT_FALSE(model().canGoBack());

    stage_.press(QStringLiteral("Large files"));
    stage_.until("an empty result",
                 [this] { return stage_.reads(QStringLiteral("No files over 500 MB here")); });
}

TEST_F(AnalyzeScreenTest, ChartAndTableLightUpTogether) {
    QQuickItem* chart =
        stage_.items([](QQuickItem& item) { return item.inherits("tavrel::OrbitChartItem"); })[0];
    QMetaObject::invokeMethod(row(QStringLiteral("Films")), "hoveredChanged");
    QMetaObject::invokeMethod(chart, "hovered",
                              Q_ARG(QString, QString::fromStdString(stage_.mac().at("~/Films").native())));
    stage_.settle();
    EXPECT_TRUE(row(QStringLiteral("Films"))->property("lit").toBool());
    EXPECT_TRUE(stage_.reads(QStringLiteral("13 MB")));
    QMetaObject::invokeMethod(chart, "clicked",
                              Q_ARG(QString, QString::fromStdString(stage_.mac().at("~/Films").native())));
    stage_.settle();
    EXPECT_EQ(model().currentFolder(), stage_.mac().at("~/Films"));
}

TEST_F(AnalyzeScreenTest, RemovesToTheTrashAfterAsking) {
    const auto films = stage_.mac().at("~/Films");
    stage_.state().preferences()->setDryRun(true);
    select(QStringLiteral("Films"));
    EXPECT_TRUE(stage_.reads(QStringLiteral("1 selected · 13 MB")));
    stage_.press(QStringLiteral("Preview removal"));
    EXPECT_TRUE(stage_.reads(QStringLiteral("Move 1 item (13 MB) to the Trash?")))
        << stage_.textWith("Trash?").toStdString();
    stage_.press(QStringLiteral("Move to Trash"));
    stage_.until("a preview", [this] { return model().hasLastRemoval() && !model().isRemoving(); });
    EXPECT_TRUE(Files::exists(films));
    EXPECT_TRUE(stage_.textWith(QStringLiteral("Preview:")).contains(QStringLiteral("would be freed")));

    stage_.state().preferences()->setDryRun(false);
    select(QStringLiteral("Library"));  // protected
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
