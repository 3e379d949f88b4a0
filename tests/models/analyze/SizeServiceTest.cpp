#include "core/Paths.h"
#include "models/analyze/ExplorerFixture.h"
#include "models/analyze/SizeService.h"

#include <algorithm>
#include <map>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Names = std::vector<std::string>;

/// A service whose walks end when the test says so.
class SizeServiceTest : public ::testing::Test {
  protected:
    using Folders = std::map<std::string, std::int64_t>;
    using Wait = std::shared_ptr<SizeService::Wait>;

    void make(std::size_t maxParallel) { service = std::make_unique<SizeService>(work, clock, maxParallel); }
    [[nodiscard]] Wait ask(const std::string& path) {
        return service->info(path, [this, path](const DiskIndex::Info& info) { told[path] += info.size; });
    }
    void end(const std::string& path, std::int64_t size, const Folders& below = {}) {
        DiskIndex::Measurement found{.size = size, .files = 1, .folders = {}};
        for (const auto& [folder, bytes] : below) found.folders[folder] = {.size = bytes, .files = 1};
        work.endWalk(path, found);
    }
    void measure(const std::string& path, std::int64_t size, const Folders& below = {}) {
        const Wait wait = ask(path);
        end(path, size, below);
    }
    void invalidate(const std::vector<std::string_view>& paths) {
        static_cast<void>(service->invalidate(paths));
    }
    [[nodiscard]] bool isStopped(const std::string& path) const {
        const auto walk = std::find_if(work.walks.rbegin(), work.walks.rend(),
                                       [&](const auto& each) { return each.path == path; });
        return walk->stop.stop_requested();
    }
    [[nodiscard]] Names children(const std::string& path, std::size_t most = 99) const {
        Names names;
        for (const auto& child : service->cache().children(path, most)) names.push_back(child.path);
        return names;
    }
    [[nodiscard]] std::int64_t known(const std::string& path) const {
        const auto info = service->cache().find(path);
        return info ? info->size : -1;
    }

    testing::ManualClock clock;
    testing::HeldDiskWork work;
    const Names& begun = work.begunWalks;
    std::unique_ptr<SizeService> service;
    std::map<std::string, std::int64_t> told;
};

TEST_F(SizeServiceTest, WhoeverAsksForOneFolderWaitsForOneWalk) {
    make(4);
    const Wait first = ask("/a");
    const Wait second = ask("/a");
    EXPECT_THAT(begun, ElementsAre("/a"));
    end("/a", 7);
    EXPECT_EQ(told["/a"], 14);
    EXPECT_EQ(ask("/a"), nullptr);  // told at once, from the cache
    EXPECT_EQ(told["/a"], 21);
    EXPECT_EQ(service->running(), 0U);
}

TEST_F(SizeServiceTest, PermitsAreBoundedAndTheLastToComeIsServedFirst) {
    make(2);
    std::vector<Wait> waits;
    for (const char* path : {"/1", "/2", "/3", "/4", "/5"}) waits.push_back(ask(path));
    EXPECT_THAT(begun, ElementsAre("/1", "/2"));
    end("/2", 1);
    end("/5", 1);
    waits.push_back(ask("/6"));
    end("/4", 1);
    EXPECT_THAT(begun, ElementsAre("/1", "/2", "/5", "/4", "/6"));
    EXPECT_EQ(service->running(), 2U);
    for (const char* path : {"/1", "/6", "/3"}) end(path, 1);
    EXPECT_EQ(service->running(), 0U);
    EXPECT_EQ(told.size(), 6U);
}

TEST_F(SizeServiceTest, AWalkThatStallsGivesItsPermitToTheNextAndMayStillAnswer) {
    make(2);
    int stalled = 0;
    std::vector<Wait> waits = {service->info(
                                   "/dead", [](const auto&) {}, [&] { ++stalled; }),
                               ask("/slow")};
    for (const char* path : {"/1", "/2", "/3"}) waits.push_back(ask(path));
    for (int look = 0; look < 6; ++look) {
        ++*work.progress["/slow"];
        clock.advance(SizeService::patience);
    }
    EXPECT_EQ(stalled, 1);
    EXPECT_THAT(begun, ElementsAre("/dead", "/slow", "/3", "/2", "/1"));  // these stall as well
    EXPECT_EQ(service->running(), 2U);
    end("/dead", 5);
    EXPECT_EQ(known("/dead"), 5);
    EXPECT_EQ(service->running(), 2U);
    waits.clear();
    for (const auto& walk : work.walks) EXPECT_TRUE(walk.stop.stop_requested()) << walk.path;
}

TEST_F(SizeServiceTest, AWalkThatNobodyWaitsForIsStoppedAndKeepsWhatItHadFinished) {
    make(1);
    Wait running = ask("/a");
    Wait alsoRunning = ask("/a");
    Wait waiting = ask("/b");
    const Wait other = ask("/c");
    waiting.reset();  // never begins
    running.reset();
    EXPECT_FALSE(isStopped("/a"));  // somebody else still waits
    alsoRunning.reset();
    EXPECT_TRUE(isStopped("/a"));
    EXPECT_EQ(service->running(), 1U);  // until it has noticed

    const auto old = work.walks.back();
    work.walks.pop_back();
    const Wait anew = ask("/a");  // must not join the one that is stopping
    old.done(SizeFindings::of({.size = 3, .files = 1, .folders = {{"/a/x", {.size = 1, .files = 1}}}}));
    EXPECT_EQ(known("/a"), -1);
    EXPECT_EQ(known("/a/x"), 1);
    EXPECT_THAT(begun, ElementsAre("/a", "/a"));
    EXPECT_FALSE(isStopped("/a"));
    end("/a", 9);
    EXPECT_EQ(known("/a"), 9);
    end("/c", 1);
    EXPECT_THAT(begun, ElementsAre("/a", "/a", "/c"));
    EXPECT_EQ(told, (std::map<std::string, std::int64_t>{{"/a", 9}, {"/c", 1}}));

    Wait late = ask("/d");
    late.reset();
    invalidate({"/d/x"});  // it may have been measured before that
    end("/d", 0, {{"/d/x", 1}});
    EXPECT_EQ(known("/d/x"), -1);
}

TEST_F(SizeServiceTest, AnAnswerMayLetGoOfOthersAndAskAgain) {
    make(1);
    Wait second;
    Wait next;
    Wait first = service->info("/a", [&](const DiskIndex::Info&) {
        first.reset();
        second.reset();
        next = ask("/b");
    });
    second = ask("/a");
    end("/a", 5);
    EXPECT_FALSE(told.contains("/a"));
    EXPECT_THAT(begun, ElementsAre("/a", "/b"));
    end("/b", 2);
    EXPECT_EQ(told["/b"], 2);
}

TEST_F(SizeServiceTest, ItsEndStopsWhatRunsAndWaitsMayOutliveIt) {
    make(1);
    Wait running = ask("/a");
    Wait waiting = ask("/b");
    service.reset();
    EXPECT_TRUE(isStopped("/a"));
    running.reset();
    waiting.reset();
    end("/a", 1);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SizeServiceTest, OlderFiguresBelowStandAndAWalksOwnFigureReplaces) {
    make(4);
    measure("/a/b", 10, {{"/a/b/c", 4}});
    EXPECT_THAT(children("/a"), IsEmpty());  // nobody walked it
    measure("/a", 100, {{"/a/b", 11}, {"/a/b/c", 5}, {"/a/b/d", 6}, {"/a/e", 20}});
    EXPECT_EQ(known("/a/b"), 10);
    EXPECT_EQ(known("/a/b/c"), 4);
    EXPECT_THAT(children("/a"), ElementsAre("/a/e", "/a/b"));
    EXPECT_THAT(children("/a", 1), ElementsAre("/a/e"));
    EXPECT_THAT(children("/a/b"), ElementsAre("/a/b/d", "/a/b/c"));
    EXPECT_THAT(children("/never"), IsEmpty());
}

TEST_F(SizeServiceTest, InvalidatingForgetsAboveAndBelowAndNothingBeside) {
    make(4);
    measure("/a", 100,
            {{"/a/b", 10}, {"/a/b/c", 4}, {"/a/bc", 5}, {"/a/bc/x", 3}, {"/a/b-", 2}, {"/a/d", 6}});
    measure("/a/b/c/y", 2, {{"/a/b/c/y/z", 1}});
    invalidate({"/a/b"});
    for (const char* gone : {"/a", "/a/b", "/a/b/c", "/a/b/c/y", "/a/b/c/y/z"})
        EXPECT_EQ(known(gone), -1) << gone;
    for (const char* kept : {"/a/bc", "/a/bc/x", "/a/b-", "/a/d"}) EXPECT_GT(known(kept), 0) << kept;
    EXPECT_THAT(children("/a"), ElementsAre("/a/d", "/a/bc", "/a/b-"));
    measure("/a/b", 3);
    EXPECT_THAT(children("/a"), ElementsAre("/a/d", "/a/bc", "/a/b-"));  // until a walk meets it there

    const Wait wait = ask("/a");
    invalidate({"/a/d"});
    end("/a", 50, {{"/a/b", 3}, {"/a/d", 1}});
    EXPECT_EQ(known("/a"), 50);  // it was under way, and still tells
    EXPECT_EQ(known("/a/d"), 1);
    static_cast<void>(service->forgetAll());
    EXPECT_EQ(known("/a"), -1);
}

TEST_F(SizeServiceTest, ManyAreForgottenAsEachWouldBe) {
    const Folders tree = {{"/a/b", 9},   {"/a/b/c", 4},  {"/a/b/c/y", 2}, {"/a/b-", 2},    {"/a/b-/x", 1},
                          {"/a/b0", 3},  {"/a/b0/x", 1}, {"/a/c", 5},     {"/a/c/x/y", 3}, {"/a/d", 6},
                          {"/a/d/x", 1}, {"/e/f", 2},    {"/e/f/x", 1},   {"/e/g", 1}};
    const std::vector<std::vector<std::string_view>> cases = {
        {"/a/b", "/a/b-", "/a/c"},           {"/a/c", "/a/b-", "/a/b"},
        {"/a/b0", "/e/f", "/a/d"},           {"/a", "/e/g"},
        {"/a/b/c", "/a/d", "/a/none", "/e"}, {"/"}};
    for (const auto& gone : cases) {
        make(4);
        measure("/a", 50, tree);
        invalidate(gone);
        for (const auto& [path, size] : tree) {
            const bool stays =
                std::none_of(gone.begin(), gone.end(), [&, &each = path](std::string_view one) {
                    return Paths::isInside(each, one) || Paths::isInside(one, each);
                });
            EXPECT_EQ(known(path), stays ? size : -1)
                << path << " without " << ::testing::PrintToString(gone);
        }
        EXPECT_EQ(known("/a"), -1);
    }
}

TEST(SizeService, LeavesTwoProcessorsToOthersButWalksFourfoldAtLeast) {
    EXPECT_EQ(SizeService::parallelWalks(1), 4U);
    EXPECT_EQ(SizeService::parallelWalks(6), 4U);
    EXPECT_EQ(SizeService::parallelWalks(16), 14U);
}

}  // namespace
}  // namespace tavrel
