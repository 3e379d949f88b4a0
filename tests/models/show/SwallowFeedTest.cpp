#include "models/show/FakeIconSource.h"
#include "models/show/FileIcons.h"
#include "models/show/SwallowFeed.h"
#include "support/ManualClock.h"

#include <limits>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using testing::FakeIconSource;
using testing::ManualClock;
using Sizes = std::vector<std::int64_t>;

class SwallowFeedTest : public ::testing::Test {
  protected:
    /// A feed of items with these sizes that notes what it releases.
    SwallowFeed& make(const Sizes& sizes) {
        std::vector<CleanItem> items;
        for (const std::int64_t size : sizes) items.push_back({.url = "/gone/x.txt", .size = size});
        feed = std::make_unique<SwallowFeed>(items, OwnIcons::no, icons, clock);
        QObject::connect(feed.get(), &SwallowFeed::eventsChanged, [this] {
            ids.push_back(feed->events().back().id);
            releases.push_back(feed->events().back().start);
        });
        return *feed;
    }
    [[nodiscard]] double elapsed() const { return inSeconds(clock.uptime() - start); }

    FakeIconSource source;
    FileIcons icons{source, {}};
    ManualClock clock;
    const Instant start = clock.uptime();
    std::vector<std::int64_t> ids;
    std::vector<Instant> releases;
    std::unique_ptr<SwallowFeed> feed;
};

TEST_F(SwallowFeedTest, InstantWorkIsShownInEvenWavesForItsMinimum) {
    make(Sizes(100, 1'000'000));
    double furthest = 0;
    QObject::connect(feed.get(), &SwallowFeed::swallowedChanged, [&] {
        EXPECT_GT(feed->swallowed(), furthest);
        furthest = feed->swallowed();
    });
    feed->reached(1);
    feed->finish();
    EXPECT_EQ(feed->remaining(), 100'000'000);
    const auto task = feed->run(3);
    clock.advance(2.9);
    clock.set(-std::chrono::hours(1));  // by a person: the show does not wait for it
    clock.advance(0.1);
    EXPECT_FALSE(task.isReady());
    EXPECT_THAT(ids, ElementsAre(10, 20, 30, 40, 50, 60, 70, 80, 90, 100));
    EXPECT_EQ(releases.back() - releases.front(), seconds(2.7));

    while (!task.isReady()) clock.advance(0.01);
    EXPECT_NEAR(elapsed(), 2.7 + 2 + 2.5 * 4 / 7, 0.3);  // when a wave of 10 MB has fallen
    EXPECT_EQ(feed->remaining(), 0);
    EXPECT_LE(feed->swallowed(), 1);
    EXPECT_NEAR(feed->swallowed(), 1, 1e-9);
    for (const SwallowFeed::Event& event : feed->events()) EXPECT_EQ(event.bytes, 10'000'000);
}

TEST_F(SwallowFeedTest, AQuarterOfWhatIsPendingFallsWhileWorkGoesOn) {
    make(Sizes(8, 1'000));
    const auto task = feed->run(3);
    clock.advance(1.0);
    EXPECT_TRUE(ids.empty());
    feed->reached(1);
    clock.advance(0.05);  // the feed looks again that soon
    EXPECT_THAT(ids, ElementsAre(2));
    clock.advance(1.5);
    EXPECT_THAT(ids, ElementsAre(2, 4, 5, 6, 7, 8));
    clock.advance(60.0);
    EXPECT_FALSE(task.isReady());  // for the work may reach no more and yet not be over
    feed->finish();
    clock.advance(0.05);
    EXPECT_TRUE(task.isReady());
}

TEST_F(SwallowFeedTest, ProgressNeverGoesBackNorBeyondTheItems) {
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    struct Row {
        double told;
        std::int64_t reached;
    };
    constexpr Row rows[] = {{-1, 0},         {0.249, 2}, {0.7, 7},    {0.5, 7},
                            {notANumber, 7}, {0.75, 8},  {1e300, 10}, {0, 10}};
    make(Sizes(10, 1));
    for (const Row& row : rows) {
        feed->reached(row.told);
        EXPECT_EQ(feed->reached(), row.reached) << row.told;
    }
}

TEST_F(SwallowFeedTest, NothingToShowIsShownAtOnce) {
    make({}).finish();
    const auto task = feed->run(3);
    EXPECT_TRUE(task.isReady());
    EXPECT_EQ(feed->remaining(), 0);
}

TEST_F(SwallowFeedTest, WhatTheWorkDidNotReachIsNotShownButCountedOff) {
    make(Sizes(10, 100));
    feed->reached(0.5);
    feed->finish();
    const auto task = feed->run(0);
    EXPECT_THAT(ids, ElementsAre(5));
    clock.advance(1.1);
    EXPECT_EQ(feed->remaining(), 500);
    EXPECT_DOUBLE_EQ(feed->swallowed(), 0.5);
    clock.advance(0.91);
    EXPECT_TRUE(task.isReady());
    EXPECT_EQ(feed->remaining(), 0);
}

TEST_F(SwallowFeedTest, ALightIconLandsAfterItsTimeAndIsForgottenAfterMore) {
    make(Sizes(3, 500));
    feed->reached(0.3);
    const auto task = feed->run(0);
    clock.advance(1.099);
    EXPECT_EQ(feed->swallowed(), 0);
    EXPECT_EQ(feed->remaining(), 1'500);
    clock.advance(0.001);
    EXPECT_GT(feed->swallowed(), 0);
    EXPECT_EQ(feed->remaining(), 1'000);

    clock.advance(1.8);
    feed->reached(0.6);
    clock.advance(0.06);  // at about 2.95 s the first is still kept
    EXPECT_EQ(feed->events().size(), 2U);
    feed->reached(1);
    clock.advance(0.3);
    ASSERT_EQ(feed->events().size(), 2U);
    EXPECT_EQ(feed->events().front().id, 2);
    feed->finish();
    clock.drain();
    EXPECT_TRUE(task.isReady());
}

TEST_F(SwallowFeedTest, TheCounterStaysOnZeroWhenAHeavyIconIsStillOnItsWay) {
    make({20'000'000'000, 1});
    feed->reached(0.5);
    const auto task = feed->run(0);
    feed->reached(1);
    feed->finish();
    clock.advance(2.31);
    EXPECT_TRUE(task.isReady());
    EXPECT_EQ(feed->remaining(), 0);
    EXPECT_LT(feed->swallowed(), 0.5);
    clock.drain();
    EXPECT_EQ(feed->remaining(), 0);
    EXPECT_DOUBLE_EQ(feed->swallowed(), 1);
}

TEST_F(SwallowFeedTest, PicturesFallOneByOneFromDirectionsThatNeverMeet) {
    std::vector<QImage> pictures;
    for (const char* label : {"a", "b", "c"}) pictures.push_back(FakeIconSource::picture(label));
    feed = std::make_unique<SwallowFeed>(pictures, clock);
    feed->reached(1);
    const auto task = feed->run(2.5);
    clock.advance(0.7);
    ASSERT_EQ(feed->events().size(), 3U);
    EXPECT_EQ(FakeIconSource::label(feed->events()[0].icon), "a");
    EXPECT_EQ(FakeIconSource::label(feed->events()[2].icon), "c");
    EXPECT_EQ(feed->events()[1].bytes, 50'000'000);
    EXPECT_DOUBLE_EQ(feed->events()[2].angle, 0.6 + 2 * 2.399963);
    clock.advance(10.0);
    EXPECT_EQ(feed->remaining(), 0);
    EXPECT_NEAR(feed->swallowed(), 1, 1e-12);
    feed->finish();
    clock.drain();
    EXPECT_TRUE(task.isReady());
}

TEST_F(SwallowFeedTest, ManyItemsMakeFewEvents) {
    make(Sizes(100'000, 1'000));
    feed->reached(1);
    feed->finish();
    const auto task = feed->run(3.6);
    clock.drain();
    EXPECT_TRUE(task.isReady());
    EXPECT_EQ(ids.size(), 12U);
    EXPECT_EQ(ids.back(), 100'000);
    EXPECT_EQ(feed->remaining(), 0);
}

TEST_F(SwallowFeedTest, MayBeDestroyedAtAnyMomentOfItsRun) {
    // While it waits for work, between two waves, with icons in flight, and while the last one falls.
    for (const double moment : {0.02, 0.4, 1.05, 2.0}) {
        make(Sizes(4, 1'000));
        const auto task = feed->run(0);
        clock.advance(std::min(moment, 0.1));
        feed->reached(1);
        clock.advance(std::max(moment - 0.1, 0.0));
        if (moment > 1) feed->finish();
        if (moment > 1) clock.advance(0.6);
        EXPECT_FALSE(task.isReady()) << moment;
        feed.reset();
        clock.drain();
        EXPECT_TRUE(task.isReady()) << moment;
    }
}

}  // namespace
}  // namespace tavrel
