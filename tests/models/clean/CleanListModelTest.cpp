#include "models/clean/CleanFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::CleanFixture;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::reviewItem;
using testing::safeItem;
using ::testing::UnorderedElementsAre;
using Stage = CleanListModel::Stage;
using Ids = std::vector<std::string>;

TEST(CleanListModel, NothingBeginsWhileSomethingGoesOn) {
    struct Row {
        Stage stage;
        bool scans;
        bool cleans;
        bool working;
    };
    constexpr Row rows[] = {
        {Stage::Idle, true, false, false},  // nothing is selected before the first scan
        {Stage::Scanning, false, false, true}, {Stage::Ready, true, true, false},
        {Stage::Cleaning, false, false, true}, {Stage::Done, true, true, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.stage));
        CleanFixture scanned;
        scanned.reach(row.stage);
        ASSERT_EQ(scanned.list->stage(), row.stage);
        EXPECT_EQ(scanned.list->isWorking(), row.working);
        const int searches = scanned.search.begun;
        scanned.list->scan();
        EXPECT_EQ(scanned.search.begun, searches + (row.scans ? 1 : 0));
        EXPECT_EQ(scanned.list->stage(), row.scans ? Stage::Scanning : row.stage);

        CleanFixture cleaned;
        cleaned.reach(row.stage);
        const std::size_t runs = cleaned.runner.jobs.size();
        cleaned.list->clean();
        EXPECT_EQ(cleaned.runner.jobs.size(), runs + (row.cleans ? 1 : 0));
        EXPECT_EQ(cleaned.list->stage(), row.cleans ? Stage::Cleaning : row.stage);
    }
}

TEST(CleanListModel, AScanSelectsWhatIsSafeAndNothingElse) {
    CleanFixture desk;
    desk.find({safeItem("/a/1", 10), reviewItem("/a/2", 200), safeItem("/a/3", 3'000)});
    EXPECT_THAT(desk.selected(), UnorderedElementsAre("/a/1", "/a/3"));
    EXPECT_THAT(CleanFixture::names(desk.list->selectedItems()), ElementsAre("1", "3"));
    EXPECT_EQ(desk.list->selectedCount(), 2);
    EXPECT_EQ(desk.list->selectedSize(), 3'010);
    EXPECT_EQ(desk.list->figures().total, 3'210);
}

TEST(CleanListModel, AnotherScanForgetsTheFormerOnlyWhenItEnds) {
    CleanFixture desk;
    desk.find({safeItem("/a/1"), reviewItem("/a/2")});
    desk.list->toggle({"/a/1", "/a/2"});
    desk.clean({.removed = {safeItem("/a/1")}});
    ASSERT_NE(desk.list->feed(), nullptr);
    desk.list->setReviewing(true);

    desk.list->scan();
    EXPECT_EQ(desk.list->feed(), nullptr);
    EXPECT_EQ(desk.list->report(), nullptr);
    EXPECT_THAT(CleanFixture::names(desk.list->items()), ElementsAre("2"));
    EXPECT_TRUE(desk.list->reviewing());
    desk.endScan({reviewItem("/a/2")});
    EXPECT_THAT(desk.selected(), IsEmpty());
    EXPECT_FALSE(desk.list->reviewing());

    desk.find({});
    EXPECT_EQ(desk.list->stage(), Stage::Ready);
    EXPECT_EQ(desk.list->itemCount(), 0);
    EXPECT_THAT(desk.list->grouped(), IsEmpty());
}

TEST(CleanListModel, TogglingSelectsAllUnlessAllAreSelected) {
    struct Row {
        Ids before;
        Ids toggled;
        std::set<std::string> after;
    };
    const Row rows[] = {
        {{"1", "2"}, {"1", "2", "3"}, {"1", "2", "3"}},
        {{"1", "2", "3"}, {"1", "3"}, {"2"}},
        {{}, {"2"}, {"2"}},
        {{"2"}, {"2"}, {}},
        {{"1"}, {"2", "3"}, {"1", "2", "3"}},
        {{"1", "2"}, {}, {"1", "2"}},
    };
    for (const Row& row : rows) {
        CleanFixture desk;
        desk.find({reviewItem("1", 1), reviewItem("2", 20), reviewItem("3", 300)});
        for (const std::string& id : row.before) desk.list->toggle({id});
        desk.list->toggle(row.toggled);
        EXPECT_EQ(desk.selected(), row.after);
        std::int64_t size = 0;
        for (const CleanItem& item : desk.list->selectedItems()) size += item.size;
        EXPECT_EQ(desk.list->selectedSize(), size);
        EXPECT_EQ(desk.list->selectedCount(), static_cast<int>(row.after.size()));
    }
}

TEST(CleanListModel, GroupsStandInTheOrderOfTheCategoriesAndKeepThatOfTheItems) {
    using enum CleanCategory;
    CleanFixture desk;
    desk.find({safeItem("/t", 1, trash), safeItem("/l1", 1, logs), safeItem("/c", 1, userCaches),
               safeItem("/l2", 1, logs)});
    std::vector<std::pair<CleanCategory, Ids>> groups;
    for (const auto& group : desk.list->grouped()) {
        groups.emplace_back(group.category, Ids());
        for (const std::size_t at : group.items) groups.back().second.push_back(desk.list->items()[at].id());
    }
    EXPECT_THAT(groups, ElementsAre(std::pair(userCaches, Ids{"/c"}), std::pair(logs, Ids{"/l1", "/l2"}),
                                    std::pair(trash, Ids{"/t"})));
}

TEST(CleanListModel, MayBeDestroyedWhileItScansOrCleans) {
    CleanFixture scanning;
    scanning.list->scan();
    scanning.list.reset();
    scanning.endScan({safeItem("/a/1")});
    EXPECT_FALSE(scanning.search.isRunning());

    // While the removal goes on, while the show goes on after it, and when it is nearly over.
    for (const double moment : {-1.0, 0.0, 1.9}) {
        CleanFixture cleaning;
        cleaning.find({safeItem("/a/1")});
        cleaning.list->clean();
        const CleanReport report = {.freed = 1'000, .removed = {safeItem("/a/1")}};
        if (moment >= 0) cleaning.runner.report(report);
        cleaning.clock.advance(std::max(moment, 0.0));
        cleaning.list.reset();
        cleaning.runner.jobs.front().progress(1);
        if (moment < 0) cleaning.runner.report(report);
        cleaning.clock.drain();
        EXPECT_EQ(cleaning.player.sounds, 0) << moment;
    }
}

}  // namespace
}  // namespace tavrel
