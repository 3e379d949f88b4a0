#include "screens/analyze/OrbitChartItem.h"

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QtQml/QQmlExtensionPlugin>
#include <cmath>
#include <memory>
#include <numbers>

#include <gtest/gtest.h>

Q_IMPORT_QML_PLUGIN(Tavrel_AnalyzePlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_ControlsPlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_ModelsPlugin)
Q_IMPORT_QML_PLUGIN(Tavrel_ScenePlugin)

namespace tavrel::testing {
namespace {

constexpr int side = 400;  // points

std::shared_ptr<const OrbitLayout> sampleLayout() {
    const std::vector<AnalyzeEntry> entries = {{"/d/half", 500'000, 9, true},
                                               {"/d/third", 300'000, 9, true},
                                               {"/d/file", 199'000, 1, false},
                                               {"/d/speck", 1'000, 1, false}};
    const SubSlices slices = {{"/d/half", {{"/d/half/a", 300'000, 4}, {"/d/half/b", 150'000, 4}}},
                              {"/d/third", {{"/d/third/a", 300'000, 4}}}};
    return std::make_shared<const OrbitLayout>(OrbitChart::layout(entries, slices));
}

/// The chart alone in a window, with a focus that does what it asks for.
class OrbitChartTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    void SetUp() override {
        engine_.addImportPath(QStringLiteral(":/qt/qml"));
        QQmlComponent stillness(&engine_);
        stillness.setData(R"(import QtQml; import Tavrel.Controls
                             QtObject { Component.onCompleted: Theme.reduceMotion = true })",
                          QUrl(QStringLiteral("stillness.qml")));
        const std::unique_ptr<QObject> made(stillness.create());
        QQmlComponent component(&engine_);
        component.setData(R"(
            import QtQuick
            import Tavrel.Analyze
            OrbitChart {
                property var openedIds: []
                width: 400; height: 400; name: "d"
                onFocused: id => focusId = id
                onUnfocused: id => { if (focusId === id) focusId = "" }
                onOpened: id => openedIds = openedIds.concat([id])
            })",
                          QUrl(QStringLiteral("test.qml")));
        window_ = std::make_unique<QQuickWindow>();
        window_->setColor(Qt::black);
        window_->resize(side, side);
        chart_.reset(qobject_cast<QQuickItem*>(component.create()));
        ASSERT_NE(chart_, nullptr) << component.errorString().toStdString();
        chart_->setParentItem(window_->contentItem());
        chart_->setProperty("layout", QVariant::fromValue(sampleLayout()));
        rings_ = chart_->findChild<OrbitChartItem*>();
        ASSERT_NE(rings_, nullptr);
        QAccessible::setActive(true);  // a screen reader listens
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
        QTest::qWait(50);
    }
    void TearDown() override {
        chart_.reset();
        QAccessible::setActive(false);
    }

    [[nodiscard]] std::string focus() const { return chart_->property("focusId").toString().toStdString(); }
    [[nodiscard]] QStringList opened() const { return chart_->property("openedIds").toStringList(); }
    void type(Qt::Key key) {
        QTest::keyClick(window_.get(), key);
        QTest::qWait(1);
    }
    /// A point of the window, by radius and turn.
    static QPoint at(double radius, double turn) {
        const double angle = (turn - 0.25) * 2 * std::numbers::pi;
        return (QPointF(side, side) / 2 + QPointF(std::cos(angle), std::sin(angle)) * radius * side / 2)
            .toPoint();
    }

    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
    std::unique_ptr<QQuickItem> chart_;
    OrbitChartItem* rings_ = nullptr;
};

TEST_F(OrbitChartTest, DrawsAnArcWhereThePointerFindsOne) {
    const QImage image = window_->grabWindow();
    rings_->setReveal(0);
    const QImage bare = window_->grabWindow();
    rings_->setReveal(1);
    const auto lightAt = [](const QImage& from, const QPoint& point) {
        const QColor colour = from.pixelColor(point * from.width() / side);
        return colour.red() + colour.green() + colour.blue();
    };
    constexpr int ofArcs = 165;  // more light than what arcs shed around them
    int inArcs = 0;
    int elsewhere = 0;
    for (double turn = 0.005; turn < 0.995; turn += 0.007) {
        for (const double radius : {0.52, 0.6, 0.66, 0.74, 0.8, 0.88, 0.97}) {
            const QPoint point = at(radius, turn);
            const QString id = rings_->arcAt(point);
            bool isEdge = false;
            for (const QPoint aside : {QPoint(2, 0), QPoint(-2, 0), QPoint(0, 2), QPoint(0, -2)})
                isEdge = isEdge || rings_->arcAt(point + aside) != id;
            if (isEdge) continue;
            const int gained = lightAt(image, point) - lightAt(bare, point);
            EXPECT_EQ(gained >= ofArcs, !id.isEmpty())
                << radius << " " << turn << " " << gained << " " << id.toStdString();
            ++(id.isEmpty() ? elsewhere : inArcs);
        }
    }
    EXPECT_GT(inArcs, 500);
    EXPECT_GT(elsewhere, 150);
    EXPECT_LT(lightAt(image, at(0.3, 0.1)), 60) << "the dark is lit";
    for (double turn = 0.51; turn < 0.99; turn += 0.001) {
        for (double radius = 0.38; radius < 0.94; radius += 0.004) {
            const QColor colour = image.pixelColor(at(radius, turn) * image.width() / side);
            ASSERT_LE(colour.green(), colour.red() + 3) << "warm arcs, yet at " << radius << " " << turn;
        }
    }
}

TEST_F(OrbitChartTest, BrightensTheFocusAndDimsTheOthers) {
    const auto lightAt = [](const QImage& image, const QPoint& point) {
        return image.pixelColor(point * image.width() / side).lightness();
    };
    const QPoint half = at(0.6, 0.25);
    const QPoint third = at(0.6, 0.65);
    const QPoint larger = at(0.695, 0.65);
    const QImage before = window_->grabWindow();
    chart_->setProperty("focusId", "/d/third");
    const QImage after = window_->grabWindow();
    EXPECT_LT(lightAt(after, half), lightAt(before, half) - 40);
    EXPECT_NEAR(lightAt(after, third), lightAt(before, third), 12);
    EXPECT_GT(lightAt(after, larger), lightAt(before, larger) + 60);

    chart_->setProperty("focusId", "");
    rings_->setProperty("animated", true);
    chart_->setVisible(false);
    chart_->setProperty("focusId", "/d/third");
    chart_->setVisible(true);
    EXPECT_LT(lightAt(window_->grabWindow(), half), lightAt(before, half) - 40) << "moved while hidden";
}

TEST(OrbitLights, NothingFlashesAsTheFocusMoves) {
    OrbitLights lights;
    lights.settle("a");
    double emphasis = 1;
    bool moves = true;
    for (int frame = 0; frame < 60 && moves; ++frame) {
        moves = lights.step("b", 1.0 / 60);
        EXPECT_NEAR(lights.of("c").dim, 1, 1e-9);
        EXPECT_LE(lights.of("a").emphasis, emphasis);
        emphasis = lights.of("a").emphasis;
    }
    EXPECT_FALSE(moves) << "never comes to rest";
    EXPECT_EQ(lights.of("b").emphasis, 1);
    EXPECT_EQ(lights.of("b").dim, 0);
    EXPECT_EQ(lights.of("a").dim, 1);
    while (lights.step({}, 1.0 / 60)) EXPECT_EQ(lights.of("b").dim, 0);
    EXPECT_EQ(lights.of("c").dim, 0);
}

TEST_F(OrbitChartTest, PointerChoosesAndOpens) {
    QTest::mouseMove(window_.get(), at(0.6, 0.25));
    QTest::qWait(1);
    EXPECT_EQ(focus(), "/d/half");
    QTest::mouseMove(window_.get(), at(0.8, 0.1));
    QTest::qWait(1);
    EXPECT_EQ(focus(), "/d/half/a");
    QTest::mouseClick(window_.get(), Qt::LeftButton, Qt::NoModifier, at(0.8, 0.1));
    EXPECT_EQ(opened(), QStringList("/d/half/a"));
    QTest::mouseMove(window_.get(), at(0.2, 0.1));
    QTest::qWait(1);
    EXPECT_EQ(focus(), "");
    QTest::mouseClick(window_.get(), Qt::LeftButton, Qt::NoModifier, at(0.2, 0.1));
    EXPECT_EQ(opened().size(), 1) << "the dark opens nothing";
    QTest::mouseDClick(window_.get(), Qt::LeftButton, Qt::NoModifier, at(0.8, 0.1));
    EXPECT_EQ(opened().size(), 2) << "two levels at once";
}

TEST_F(OrbitChartTest, KeysGoFromArcToArcAndOpen) {
    chart_->forceActiveFocus();
    EXPECT_EQ(focus(), "/d/half");
    type(Qt::Key_Left);
    EXPECT_EQ(focus(), "other");
    type(Qt::Key_Right);
    type(Qt::Key_Right);
    EXPECT_EQ(focus(), "/d/third");
    type(Qt::Key_Up);
    EXPECT_EQ(focus(), "/d/third/a");
    type(Qt::Key_Up);
    EXPECT_EQ(focus(), "/d/third/a") << "there is no ring further out";
    type(Qt::Key_Home);
    EXPECT_EQ(focus(), "/d/half/a");
    type(Qt::Key_Return);
    type(Qt::Key_Space);
    EXPECT_EQ(opened(), QStringList({"/d/half/a", "/d/half/a"}));
    type(Qt::Key_Down);
    type(Qt::Key_End);
    EXPECT_EQ(focus(), "other");
    type(Qt::Key_Escape);
    EXPECT_EQ(focus(), "");
    type(Qt::Key_Return);
    EXPECT_EQ(opened().size(), 2);
    type(Qt::Key_Right);
    type(Qt::Key_Return);
    chart_->setProperty("focusId", "");
    const std::vector<AnalyzeEntry> inside = {{"/d/half/a", 5, 1, true}};
    chart_->setProperty(
        "layout", QVariant::fromValue(std::make_shared<const OrbitLayout>(OrbitChart::layout(inside, {}))));
    EXPECT_EQ(focus(), "/d/half/a") << "where the keyboard has led";
}

TEST_F(OrbitChartTest, AScreenReaderHearsAndOpensEachArc) {
    std::map<std::string, QAccessibleInterface*> arcs;
    for (QQuickItem* item : chart_->childItems()) {
        QAccessibleInterface* arc = QAccessible::queryAccessibleInterface(item);
        if (arc != nullptr && arc->role() == QAccessible::Button)
            arcs[arc->text(QAccessible::Name).toStdString()] = arc;
    }
    ASSERT_EQ(arcs.size(), 7U);
    QAccessibleInterface* slice = arcs["half / b, 150 KB, 15.0%"];
    ASSERT_NE(slice, nullptr);
    EXPECT_TRUE(slice->rect().contains(window_->mapToGlobal(at(0.8, 0.38))));
    chart_->setSize({side / 2.0, side / 2.0});
    EXPECT_TRUE(slice->rect().contains(window_->mapToGlobal(at(0.8, 0.38) / 2)));
    ASSERT_NE(slice->actionInterface(), nullptr);
    slice->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(opened(), QStringList("/d/half/b"));
}

}  // namespace
}  // namespace tavrel::testing
