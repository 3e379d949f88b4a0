#include "cleaning/CleaningHome.h"
#include "models/analyze/BackgroundDiskWork.h"
#include "models/analyze/ExplorerFixture.h"
#include "models/program/Preferences.h"
#include "support/EventLoop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::ExplorerFixture;
using ::testing::IsEmpty;
using testing::waitUntil;

/// What a runner would say of these entries.
CleanReport reportOf(const std::vector<CleanItem>& items, bool dryRun) {
    return {.freed = 5, .trashed = 5, .removed = items, .dryRun = dryRun};
}

TEST(AnalyzeRemoval, APreviewLeavesEverythingAndARemovalTakesItOut) {
    for (const bool dryRun : {true, false}) {
        ExplorerFixture desk;
        desk.preferences.setDryRun(dryRun);
        desk.load({{"a", {}}, {"b", 5}, {"c", {}}});
        desk.measured("a", 30);
        desk.clock.advance(1.0);
        for (const char* name : {"a", "c"}) desk.model->toggleSelection(desk.entry(name));
        desk.model->trashSelected();
        EXPECT_TRUE(desk.model->isRemoving());
        desk.model->trash({desk.entry("b")});  // one at a time
        ASSERT_EQ(desk.runner.jobs.size(), 1U);
        const CleanJob& job = desk.runner.jobs.front();
        EXPECT_EQ(job.action, "analyze");
        EXPECT_EQ(job.options.dryRun, dryRun);
        EXPECT_EQ(job.items.size(), 2U);
        for (const CleanItem& item : job.items) EXPECT_EQ(item.risk, Risk::review);

        desk.report(reportOf(job.items, dryRun));
        EXPECT_FALSE(desk.model->isRemoving());
        EXPECT_EQ(desk.sizes.cache().find(desk.at("a").native()).has_value(), dryRun);
        EXPECT_EQ(desk.model->selectedCount(), dryRun ? 2 : 0);
        EXPECT_EQ(desk.work.walks.front().stop.stop_requested(), !dryRun);  // that of c
        if (dryRun) {
            EXPECT_EQ(desk.names().size(), 3U);
            EXPECT_EQ(desk.model->lastRemovalText().toStdString(),
                      "Preview: 2 items, 5 bytes would be freed");
        } else {
            EXPECT_THAT(desk.names(), ElementsAre("b"));
            EXPECT_EQ(desk.model->total(), 5);
            EXPECT_EQ(desk.model->lastRemovalText().toStdString(), "2 moved to the Trash");
        }
    }
}

TEST(AnalyzeRemoval, MayEndAfterTheFolderWasLeftOrTheExplorerIsGone) {
    ExplorerFixture left;
    left.load({{"a", {}}, {"b", 5}});
    left.model->trash({left.entry("b")});
    left.model->open(left.entry("a"));
    left.endListing({{"inside", 1}});
    left.report(reportOf(left.runner.jobs.front().items, false));
    EXPECT_THAT(left.names(), ElementsAre("inside"));

    ExplorerFixture relisted;  // the list on its way was read before the removal
    relisted.load({{"b", 5}});
    relisted.model->trash({relisted.entry("b")});
    relisted.model->load();
    relisted.report(reportOf(relisted.runner.jobs.front().items, false));
    EXPECT_EQ(relisted.work.listings.size(), 2U);
    relisted.endListing({});
    relisted.endListing({{"b", 5}});
    EXPECT_THAT(relisted.names(), IsEmpty());

    ExplorerFixture inside;  // of what went
    inside.load({{"a", {}}, {"b", 5}});
    inside.model->trash({inside.entry("a")});
    inside.model->open(inside.entry("a"));
    inside.endListing({{"deep", {}}});
    inside.model->open(inside.entry("a/deep"));
    inside.report(reportOf(inside.runner.jobs.front().items, false));
    EXPECT_EQ(inside.model->currentFolder(), inside.home());

    ExplorerFixture earlier;  // somebody else removed it, so that the report does not know it
    earlier.load({{"b", 5}});
    earlier.model->trash({earlier.entry("b")});
    earlier.report({});
    earlier.endListing({});
    EXPECT_THAT(earlier.names(), IsEmpty());

    ExplorerFixture gone;
    gone.load({{"b", 5}});
    gone.model->trash({gone.entry("b")});
    gone.model.reset();
    gone.report({});
}

/// The explorer over a real home, its real work and a real Trash.
class RealRemovalTest : public ::testing::Test {
  protected:
    void TearDown() override { model.reset(); }

    void open(const fs::path& folder) {
        model->navigate(folder);
        ASSERT_TRUE(waitUntil([&] { return !model->isListing() && model->pendingCount() == 0; }, clock));
    }
    [[nodiscard]] AnalyzeEntry entry(const std::string& name) const {
        const auto id = model->content().find(at(name).native());
        return id ? model->content().entry(*id) : AnalyzeEntry{};
    }
    const CleanReport& trash(const std::vector<AnalyzeEntry>& entries) {
        model->trash(entries);
        EXPECT_TRUE(waitUntil([&] { return !model->isRemoving(); }));
        return *model->lastRemoval();
    }
    [[nodiscard]] fs::path at(const std::string& name) const { return home.stage.home() / name; }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& each : model->entries()) all.push_back(each.url.filename());
        return all;
    }
    [[nodiscard]] bool isTrashed(const std::string& name) const {
        return fs::exists(fs::symlink_status(home.trash->contents() / name));
    }

    testing::CleaningHome home;
    UserDefaults defaults{home.stage.sandbox.path("settings.plist")};
    Preferences preferences{defaults, home.stage.home()};
    testing::ManualClock clock;
    BackgroundDiskWork work{{}};
    SizeService sizes{work, clock, 4};
    std::unique_ptr<AnalyzeModel> model = std::make_unique<AnalyzeModel>(AnalyzeServices{
        .places = {home.stage.sandbox.root(), home.stage.home(), {.trash = ".local/share/Trash"}},
        .clock = clock,
        .preferences = preferences,
        .sizes = sizes,
        .work = work,
        .runner = *home.cleaner,
        .safetyGuard = [this] { return home.stage.guard(); },
    });
};

TEST_F(RealRemovalTest, WhatIsMovedToTheTrashLeavesTheListAndItsFolderIsMeasuredAnew) {
    home.stage.sandbox.file("home/top/a/file", 50'000);
    home.stage.sandbox.file("home/top/b/file", 30'000);
    home.stage.sandbox.folder("home/.local/share");
    open(home.stage.home());
    const std::int64_t before = *entry("top").size;
    const std::int64_t trashed = *entry(".local").size;
    open(at("top"));
    EXPECT_THAT(names(), ElementsAre("a", "b"));
    EXPECT_EQ(trash({entry("top/a")}).removed.size(), 1U);
    EXPECT_TRUE(isTrashed("a"));
    EXPECT_THAT(names(), ElementsAre("b"));
    open(home.stage.home());
    EXPECT_LE(*entry("top").size, before - 50'000);
    EXPECT_GE(*entry(".local").size, trashed + 50'000);
}

TEST_F(RealRemovalTest, AFolderAndAThingInItGoTogetherAndCountOnce) {
    home.stage.sandbox.file("home/top/a/file", 50'000);
    open(at("top"));
    const AnalyzeEntry child = entry("top/a");
    open(home.stage.home());
    const AnalyzeEntry parent = entry("top");
    const CleanReport& report = trash({child, parent});
    EXPECT_EQ(report.removed.size(), 1U);
    EXPECT_EQ(report.freed, parent.size);
    EXPECT_THAT(report.skipped, IsEmpty());
    EXPECT_TRUE(isTrashed("top"));
    EXPECT_TRUE(fs::exists(home.trash->contents() / "top/a/file"));
}

TEST_F(RealRemovalTest, ALinkThatTookThePlaceOfWhatWasListedStaysAndLeadsNowhere) {
    home.stage.sandbox.file("home/top/a/file", 50'000);
    home.stage.sandbox.file("home/other/file", 10);
    open(at("top"));
    const AnalyzeEntry inside = entry("top/a");
    open(home.stage.home());
    const AnalyzeEntry other = entry("other");

    fs::rename(at("top"), at("moved away"));
    fs::create_directory_symlink(home.stage.outside(), at("top"));
    fs::create_directory(home.stage.outside() / "a");
    fs::rename(at("other"), at("other moved"));
    fs::create_directory_symlink(home.stage.outside(), at("other"));
    const auto outside = testing::snapshot(home.stage.outside());
    const CleanReport& report = trash({inside, other});
    EXPECT_EQ(testing::snapshot(home.stage.outside()), outside);
    EXPECT_THAT(report.removed, IsEmpty());
    EXPECT_EQ(report.freed, 0);
    ASSERT_EQ(report.skipped.size(), 2U);
    EXPECT_EQ(report.skipped[0].reason, "reached through a symbolic link");
    EXPECT_EQ(report.skipped[1].reason, "Changed since it was checked");
    EXPECT_TRUE(fs::is_symlink(at("other")));
    EXPECT_TRUE(entry("other").size.has_value());  // what was skipped stays in the list
}

}  // namespace
}  // namespace tavrel
