#include "models/program/MenuBarMetrics.h"
#include "support/Sandbox.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using testing::Sandbox;
using Role = MenuBarMetrics::Role;

std::vector<std::string> shown(const MenuBarMetrics& metrics) {
    std::vector<std::string> titles;
    for (int row = 0; row < metrics.rowCount(); ++row) {
        const auto at = [&](Role role) { return metrics.data(metrics.index(row), static_cast<int>(role)); };
        if (at(Role::shown).toBool()) titles.push_back(at(Role::title).toString().toStdString());
    }
    return titles;
}

TEST(MenuBarMetrics, ATapShowsAFigureOrTakesItAway) {
    const Sandbox sandbox;
    UserDefaults defaults(sandbox.path("settings.plist"));
    Preferences preferences(defaults, sandbox.root());
    MenuBarMetrics metrics;
    const QAbstractItemModelTester tester(&metrics, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(metrics.rowCount(), 0);
    metrics.toggle(0);

    metrics.setPreferences(&preferences);
    EXPECT_THAT(shown(metrics), ElementsAre("CPU usage", "Memory usage"));
    int told = 0;
    QObject::connect(&metrics, &QAbstractItemModel::dataChanged, [&] { ++told; });
    for (const int row : {0, 6, -1, 7}) metrics.toggle(row);
    EXPECT_THAT(shown(metrics), ElementsAre("Memory usage", "Battery"));
    EXPECT_EQ(told, 2);
    preferences.toggleMetric(MenuBarMetric::memory);
    EXPECT_EQ(told, 3);

    metrics.setPreferences(nullptr);
    EXPECT_EQ(metrics.rowCount(), 0);
    preferences.toggleMetric(MenuBarMetric::memory);
    EXPECT_EQ(told, 3);
}

}  // namespace
}  // namespace tavrel
