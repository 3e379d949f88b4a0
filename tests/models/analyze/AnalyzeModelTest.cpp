#include "models/analyze/ExplorerFixture.h"

#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using testing::ExplorerFixture;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using Mode = AnalyzeModel::Mode;

constexpr std::int64_t mebibyte = 1024LL * 1024;

TEST(AnalyzeModel, TheFirstRowsComeBeforeAnythingIsMeasured) {
    ExplorerFixture desk;
    const QSignalSpy shown(desk.model.get(), &AnalyzeModel::entriesChanged);
    desk.model->load();
    EXPECT_TRUE(desk.model->isListing());
    EXPECT_THAT(desk.work.walks, IsEmpty());
    desk.endListing({{"big", 200 * mebibyte}, {"small", 50 * mebibyte}, {"b", {}}, {"a", {}}, {"p.app", {}}});
    EXPECT_FALSE(desk.model->isListing());
    EXPECT_EQ(shown.size(), 1);
    EXPECT_THAT(desk.names(), ElementsAre("big", "a?", "b?", "p.app?", "small"));
    EXPECT_EQ(desk.model->total(), 250 * mebibyte);
    EXPECT_EQ(desk.model->totalFiles(), 2);
    EXPECT_EQ(desk.model->pendingCount(), 3);

    desk.measured("p.app", 300 * mebibyte, 9);
    desk.clock.advance(1.0);
    EXPECT_THAT(desk.names(), ElementsAre("p.app", "big", "a?", "b?", "small"));
    desk.model->open(desk.entry("p.app"));  // measured like a folder, and opened like a file
    EXPECT_EQ(desk.model->currentFolder(), desk.home());
}

TEST(AnalyzeModel, FiguresAreShownFourTimesASecondAtMostAndNoneIsForgotten) {
    ExplorerFixture desk;
    ExplorerFixture::Things things;
    for (int at = 0; at < 100; ++at) things[std::to_string(at)] = std::nullopt;
    desk.load(things);
    const QSignalSpy shown(desk.model.get(), &AnalyzeModel::entriesChanged);
    for (int at = 0; at < 99; ++at) {  // one each hundredth of a second
        const auto path = desk.work.walks.front().path;
        desk.work.endWalk(path, {.size = 10, .files = 1, .folders = {}});
        desk.clock.advance(0.01);
    }
    EXPECT_EQ(shown.size(), 4);  // the first at once
    desk.clock.advance(0.25);    // shown although nothing follows it
    EXPECT_EQ(shown.size(), 5);
    EXPECT_EQ(desk.model->pendingCount(), 1);
    desk.clock.advance(10.0);
    EXPECT_EQ(shown.size(), 5);
    desk.work.endWalk(desk.work.walks.front().path, {.size = 10, .files = 1, .folders = {}});
    EXPECT_EQ(desk.model->total(), 1'000);  // the last one need not wait
}

TEST(AnalyzeModel, ARapidSeriesShowsOnlyTheLastFolderAndStopsTheRest) {
    ExplorerFixture desk;
    desk.load({{"a", {}}, {"b", {}}, {"c", {}}});
    const auto walks = desk.work.walks;
    ASSERT_EQ(walks.size(), 3U);
    desk.model->open(desk.entry("a"));
    for (const auto& walk : walks) EXPECT_TRUE(walk.stop.stop_requested());
    desk.model->open(desk.entry("b"));  // still in sight
    ASSERT_EQ(desk.work.listings.size(), 2U);
    EXPECT_TRUE(desk.work.listings[0].stop.stop_requested());
    EXPECT_FALSE(desk.work.listings[1].stop.stop_requested());
    EXPECT_THAT(desk.model->path(), ElementsAre(desk.sandbox.root(), desk.home(), desk.at("b")));

    desk.endListing({{"of b", 1}});
    desk.endListing({{"of a", 1}});  // comes too late
    desk.measured("a", 5);           // so does this
    desk.clock.advance(1.0);
    EXPECT_THAT(desk.names(), ElementsAre("of b"));
    EXPECT_FALSE(desk.sizes.cache().find(desk.at("a").native()));

    desk.model->goBack();
    desk.endListing({{"a", {}}, {"b", {}}});
    EXPECT_EQ(desk.sizes.running(), 4U);  // two that are stopping, and two anew
    desk.measured("b", 1);
    desk.measured("a", 7);
    desk.measured("b", 99);  // the one of before, which has nothing to say
    desk.measured("c", 99);
    desk.clock.advance(1.0);
    EXPECT_THAT(desk.names(), ElementsAre("a", "b"));
    EXPECT_EQ(desk.model->total(), 8);
    EXPECT_EQ(desk.sizes.running(), 0U);
}

TEST(AnalyzeModel, QuittingStopsEverything) {
    ExplorerFixture measuring;
    measuring.load({{"a", {}}});
    measuring.model.reset();
    EXPECT_TRUE(measuring.work.walks.back().stop.stop_requested());
    EXPECT_TRUE(measuring.work.vettings.back().stop.stop_requested());
    measuring.clock.drain();

    ExplorerFixture listing;
    listing.model->load();
    listing.model.reset();
    EXPECT_TRUE(listing.work.listings.back().stop.stop_requested());
    listing.endListing({{"late", 1}});

    ExplorerFixture searching;
    searching.model->setMode(Mode::LargeFiles);
    searching.model.reset();
    EXPECT_TRUE(searching.work.searches.back().stop.stop_requested());
    searching.work.searches.back().done({});
}

TEST(AnalyzeModel, WhatIsKnownNeedsNoWalkUntilARescan) {
    ExplorerFixture desk;
    desk.load({{"a", {}}});
    const std::string inside = desk.at("a/inside").native();
    desk.work.endWalk(desk.at("a"), {.size = 9, .files = 3, .folders = {{inside, {.size = 4, .files = 2}}}});
    desk.clock.advance(1.0);
    const auto& slices = desk.model->subSlices();
    ASSERT_EQ(slices.size(), 1U);
    EXPECT_THAT(slices.at(desk.at("a").native()), ElementsAre(SubSlice{inside, 4, 2}));

    desk.model->open(slices.begin()->second.front());
    EXPECT_THAT(desk.model->path(), ElementsAre(desk.sandbox.root(), desk.home(), desk.at("a"), inside));
    desk.endListing({});
    desk.model->goBack();
    desk.endListing({{"inside", {}}});
    EXPECT_EQ(desk.model->pendingCount(), 0);
    EXPECT_EQ(desk.model->total(), 4);
    EXPECT_THAT(desk.work.walks, IsEmpty());

    desk.model->rescan();
    desk.endListing({{"inside", {}}});
    EXPECT_EQ(desk.model->pendingCount(), 1);
}

TEST(AnalyzeModel, LargeFilesStandInPlaceOfTheFolder) {
    ExplorerFixture desk;
    desk.load({{"a", 5}});
    desk.model->setMode(Mode::LargeFiles);
    EXPECT_THAT(desk.names(), IsEmpty());
    EXPECT_TRUE(desk.model->isListing());
    desk.work.searches.back().done(
        {{desk.at("y/2").native(), 600 * mebibyte}, {desk.at("x/1").native(), 600 * mebibyte}});
    EXPECT_THAT(desk.names(), ElementsAre("2", "1"));
    EXPECT_FALSE(desk.model->isListing());
    desk.model->toggleSelection(desk.model->entries()[1]);
    EXPECT_THAT(desk.model->selection(), ElementsAre(desk.at("x/1").native()));
    desk.model->setMode(Mode::LargeFiles);  // nothing new
    EXPECT_EQ(desk.work.searches.size(), 1U);
}

TEST(AnalyzeModel, OnlyWhatTheGuardAdmitsCanBeSelected) {
    ExplorerFixture desk;
    desk.load({{"a", 5}, {"b", 70}, {"kept", 900}});
    desk.model->toggleSelection(desk.entry("kept"));
    EXPECT_THAT(desk.model->selection(), IsEmpty());
    EXPECT_EQ(desk.model->refusal(desk.entry("kept")), "system folder");
    desk.model->toggleAll();  // waits until everything is vetted
    EXPECT_THAT(desk.model->selection(), IsEmpty());
    desk.work.endVetting();
    EXPECT_THAT(desk.model->selection(), UnorderedElementsAre(desk.at("a"), desk.at("b")));
    EXPECT_EQ(desk.model->selectedSize(), 75);
    EXPECT_TRUE(desk.model->allSelected());

    desk.preferences.addFolders(Preferences::PathList::ProtectedPaths, {desk.at("b")});
    desk.work.endVetting();
    EXPECT_THAT(desk.model->selection(), ElementsAre(desk.at("a")));
    EXPECT_EQ(desk.model->refusal(desk.entry("b")), "protected in Settings");
    EXPECT_TRUE(desk.model->allSelected());
    desk.model->toggleAll();
    EXPECT_EQ(desk.model->selectedCount(), 0);
}

TEST(AnalyzeModel, ASelectionGrowsWithTheFiguresThatComeIn) {
    ExplorerFixture desk;
    desk.load({{"a", {}}, {"b", 70}});
    desk.model->toggleSelection(desk.entry("a"));
    EXPECT_EQ(desk.model->selectedSize(), 0);
    desk.measured("a", 30);
    desk.clock.advance(1.0);
    EXPECT_EQ(desk.model->selectedSize(), 30);
    EXPECT_THAT(desk.names(), ElementsAre("b", "a"));
    EXPECT_EQ(desk.model->selectionText().toStdString(), "1 selected · 30 bytes");
}

}  // namespace
}  // namespace tavrel
