#include "models/analyze/AnalyzeRows.h"
#include "models/analyze/BackgroundDiskWork.h"
#include "models/clean/CleanFixture.h"
#include "models/program/Preferences.h"
#include "support/EventLoop.h"
#include "support/Sandbox.h"

#include <QThread>
#include <random>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::Sandbox;
using testing::settle;
using testing::waitUntil;

/// The explorer over a real folder with its real work, in real time.
struct Explorer {
    explicit Explorer(const Sandbox& sandbox)
        : home(sandbox.path("home")),
          defaults(sandbox.path("settings.plist")),
          preferences(defaults, home),
          model({
              .places = {sandbox.root(), home, {}},
              .clock = *clock,
              .preferences = preferences,
              .sizes = sizes,
              .work = work,
              .runner = runner,
              .safetyGuard =
                  [this] {
                      return SafetyGuard{home, {}, {}, {}};
                  },
          }) {
        rows.setSource(&model);
    }
    [[nodiscard]] bool isIdle() const {
        return !model.isListing() && model.pendingCount() == 0 && sizes.running() == 0;
    }

    fs::path home;
    UserDefaults defaults;
    Preferences preferences;
    std::unique_ptr<Clock> clock = systemClock();
    testing::HeldRunner runner;  // removes nothing
    BackgroundDiskWork work{{}};
    SizeService sizes{work, *clock, 4};
    AnalyzeModel model;
    AnalyzeRows rows;
};

void growTree(const Sandbox& sandbox) {
    for (int a = 0; a < 12; ++a) {
        for (int b = 0; b < 12; ++b) {
            const fs::path folder = fs::path("home") / std::to_string(a) / std::to_string(b);
            for (int file = 0; file < 8; ++file) sandbox.file(folder / std::to_string(file), 100LL * file);
        }
    }
}

/// What a restless person does next.
void step(Explorer& explorer, unsigned choice) {
    AnalyzeModel& model = explorer.model;
    switch (choice % 8) {
        case 0:
            return model.goBack();
        case 1:
            return model.rescan();
        case 2:
            return model.setMode(AnalyzeModel::Mode::LargeFiles);
        case 3:
            return model.navigate(explorer.home);
        case 4:
            return model.toggleAll();
        default:
            model.setMode(AnalyzeModel::Mode::Folders);
            if (explorer.rows.count() == 0) return model.load();
            return explorer.rows.open(
                explorer.rows.url(static_cast<int>(choice / 8) % explorer.rows.count()));
    }
}

TEST(ExplorerChurn, WhateverAPersonDoesInQuickSeriesTheLastFolderIsShownInFull) {
    const Sandbox sandbox;
    growTree(sandbox);
    std::mt19937 random(5);
    for (int life = 0; life < 6; ++life) {
        Explorer explorer(sandbox);
        explorer.model.load();
        for (int at = 0; at < 60; ++at) {
            step(explorer, static_cast<unsigned>(random()));
            if (random() % 3 == 0) QThread::usleep(random() % 2'000);
            settle();
        }
        if (life % 2 == 0) continue;  // quits in the middle of it
        explorer.model.setMode(AnalyzeModel::Mode::Folders);
        explorer.model.navigate(explorer.home);
        explorer.model.rescan();
        ASSERT_TRUE(waitUntil([&] { return explorer.isIdle(); }));
        const auto whole = DiskIndex::measure(explorer.home, 0);
        EXPECT_EQ(explorer.model.totalFiles(), whole.files);
        EXPECT_EQ(explorer.model.total(), whole.size - testing::allocated(explorer.home));
    }
}

}  // namespace
}  // namespace tavrel
