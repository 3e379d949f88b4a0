#include "models/clean/CleanFixture.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::CleanFixture;
using ::testing::ElementsAre;
using testing::FakeIconSource;
using testing::reviewItem;
using testing::safeItem;
using ::testing::UnorderedElementsAre;
using Items = CleanFixture::Items;
using Stage = CleanListModel::Stage;

Items many(int count, std::int64_t size) {
    Items items;
    for (int i = 0; i < count; ++i) items.push_back(safeItem("/gone/" + std::to_string(i), size));
    return items;
}

TEST(CleanRun, WhatWasSkippedStaysAndStaysSelected) {
    CleanFixture desk;
    const Items items = {safeItem("/a/1", 10), safeItem("/a/2", 200), reviewItem("/a/3", 3'000),
                         safeItem("/a/4", 40'000)};
    desk.find(items);
    desk.list->clean();
    desk.list->setReviewing(true);
    desk.runner.report(
        {.freed = 200, .removed = {items[1]}, .skipped = {{items[0], "in use"}, {items[3], "gone"}}});
    desk.clock.drain();
    EXPECT_THAT(CleanFixture::names(desk.list->items()), ElementsAre("1", "3", "4"));
    EXPECT_THAT(desk.selected(), UnorderedElementsAre("/a/1", "/a/4"));
    EXPECT_EQ(desk.list->selectedSize(), 40'010);
    EXPECT_EQ(desk.list->figures().total, 43'010);
    EXPECT_EQ(desk.list->grouped().at(0).items, (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_FALSE(desk.list->reviewing());
    ASSERT_NE(desk.list->report(), nullptr);
    EXPECT_EQ(desk.list->report()->freed, 200);
}

TEST(CleanRun, APreviewChangesNeitherItemsNorSelection) {
    CleanFixture desk;
    desk.preferences.setDryRun(true);
    const Items items = {safeItem("/a/1"), reviewItem("/a/2"), safeItem("/a/3")};
    desk.find(items);
    desk.clean({.freed = 2'000, .removed = {items[0], items[2]}, .dryRun = true});
    EXPECT_TRUE(desk.runner.jobs.at(0).options.dryRun);
    EXPECT_TRUE(desk.list->isPreview());
    EXPECT_EQ(desk.list->items(), items);
    EXPECT_THAT(desk.selected(), UnorderedElementsAre("/a/1", "/a/3"));
}

TEST(CleanRun, TheShowLastsItsTimeHoweverFastTheRemovalIs) {
    CleanFixture desk;
    const Items items = many(24, 1'000);
    desk.find(items);
    const Instant start = desk.clock.now();
    desk.list->setReviewing(true);
    desk.list->clean();
    EXPECT_FALSE(desk.list->reviewing());  // it would hide the show
    desk.runner.report({.freed = 24'000, .removed = items});
    EXPECT_EQ(desk.list->feed()->remaining(), 24'000);
    desk.clock.advance(3.6);
    EXPECT_EQ(desk.list->stage(), Stage::Cleaning);
    EXPECT_EQ(desk.list->itemCount(), 24);
    EXPECT_EQ(desk.player.sounds, 0);

    while (desk.list->stage() != Stage::Done && desk.clock.now() < start + seconds(60))
        desk.clock.advance(0.01);
    EXPECT_EQ(desk.list->stage(), Stage::Done);
    EXPECT_EQ(desk.list->itemCount(), 0);
    ASSERT_NE(desk.list->feed(), nullptr);
    EXPECT_EQ(desk.list->feed()->remaining(), 0);
    EXPECT_NEAR(desk.list->feed()->swallowed(), 1, 1e-9);
}

TEST(CleanRun, ProgressReachesTheFeedAndThePhase) {
    CleanFixture desk;
    desk.find(many(10, 1'000));
    desk.list->clean();
    EXPECT_EQ(desk.list->feed()->reached(), 0);
    EXPECT_EQ(desk.list->figures().remaining, 10'000);
    desk.runner.jobs.at(0).progress(0.7);
    EXPECT_EQ(desk.list->feed()->reached(), 7);
    EXPECT_EQ(std::get<CleanPhases::Cleaning>(desk.list->phase()).fraction, 0.7);
    desk.clock.advance(20.0);
    EXPECT_EQ(desk.list->figures().remaining, 3'000);

    // What root removes is part of no progress: the report brings the rest.
    desk.runner.report({.freed = 10'000, .removed = many(10, 1'000)});
    EXPECT_EQ(desk.list->feed()->reached(), 10);
}

TEST(CleanRun, WhatRootRemovesFallsLastAndKeepsItsPlaceInTheJob) {
    CleanFixture desk;
    Items items = {safeItem("/gone/1.forroot"), safeItem("/gone/2.plain"), safeItem("/gone/3.forroot"),
                   safeItem("/gone/4.other")};
    items[0].requiresAdmin = items[2].requiresAdmin = true;
    desk.find(items);
    std::vector<std::string> fallen;
    desk.list->clean();
    QObject::connect(desk.list->feed(), &SwallowFeed::eventsChanged, [&] {
        fallen.push_back(FakeIconSource::label(desk.list->feed()->events().back().icon));
    });
    EXPECT_THAT(CleanFixture::names(desk.runner.jobs.at(0).items),
                ElementsAre("1.forroot", "2.plain", "3.forroot", "4.other"));
    desk.runner.report({.removed = items});
    desk.clock.drain();
    EXPECT_THAT(fallen, ElementsAre("type plain", "type other", "type forroot", "type forroot"));
}

TEST(CleanRun, TheWaveIsAsStrongAsWhatWentAndAbsentWhereNothingDid) {
    struct Row {
        std::int64_t freed;
        double strength;
    };
    constexpr Row rows[] = {{0, 0.12},
                            {1, 0.12},
                            {1'000'000'000, 1.4 / 2.7},
                            {10'000'000'000, 2.4 / 2.7},
                            {40'000'000'000, 1.0},
                            {std::numeric_limits<std::int64_t>::max(), 1.0}};
    for (const Row& row : rows) {
        CleanFixture desk;
        const CleanItem item = safeItem("/a/1", row.freed);
        desk.find({item});
        desk.clean({.freed = row.freed, .removed = {item}});
        EXPECT_EQ(desk.player.sounds, 1) << row.freed;
        EXPECT_DOUBLE_EQ(desk.shockwave.strength(), row.strength) << row.freed;
    }
    CleanFixture desk;
    desk.find({safeItem("/a/1")});
    desk.clean({.skipped = {{safeItem("/a/1"), "in use"}}});
    EXPECT_EQ(desk.list->stage(), Stage::Done);
    EXPECT_EQ(desk.player.sounds, 0);
    EXPECT_FALSE(desk.shockwave.start());
}

}  // namespace
}  // namespace tavrel
