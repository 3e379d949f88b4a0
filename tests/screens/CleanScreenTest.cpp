#include "cleaning/History.h"
#include "models/clean/CleanState.h"
#include "screens/AppDriver.h"

#include <array>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace tavrel::testing {
namespace {

namespace fs = std::filesystem;

struct ModeCase {
    const char* tab;
    const char* idleTitle;
    const char* reviewTitle;
    const char* action;
    const char* historyWord;
};

constexpr std::array modes = {
    ModeCase{"System", "Ready to clean", "System junk", "Clean", "clean"},
    ModeCase{"AI", "AI leftovers", "AI tools", "Clean", "ai"},
    ModeCase{"Projects", "Project artifacts", "Build artifacts", "Purge", "purge"},
    ModeCase{"Installers", "Leftover installers", "Installers", "Remove", "installers"},
};

void scanAndReview(AppDriver& stage, CleanListModel& list) {
    stage.press("Scan");
    stage.until("the scan's end", [&] { return list.stage() == CleanListModel::Stage::Ready; });
    EXPECT_FALSE(stage.textWith(" found").isEmpty());
    stage.press("Review results");
}

void cleanUntilDone(AppDriver& stage, CleanListModel& list, const QString& verb) {
    stage.press(verb + " · " + list.selectedSizeText());
    stage.until("the clean's end", [&] { return list.stage() == CleanListModel::Stage::Done; });
}

class EachMode : public ::testing::TestWithParam<std::size_t> {};

TEST_P(EachMode, GoesFromIdleToTheReport) {
    const ModeCase& mode = modes.at(GetParam());
    AppDriver stage;
    stage.press(mode.tab);
    EXPECT_TRUE(stage.reads(mode.idleTitle));
    CleanListModel& list = *stage.state().clean()->list(static_cast<CleanMode>(GetParam()));

    scanAndReview(stage, list);
    EXPECT_TRUE(stage.reads(mode.reviewTitle));
    const auto chosen = list.selectedItems();
    ASSERT_FALSE(chosen.empty());
    cleanUntilDone(stage, list, mode.action);

    ASSERT_NE(list.report(), nullptr);
    EXPECT_FALSE(list.report()->removed.empty());
    EXPECT_FALSE(stage.textWith(" freed").isEmpty());
    for (const CleanItem& item : list.report()->removed) {
        EXPECT_FALSE(fs::exists(fs::symlink_status(item.url))) << item.url;
    }
    stage.press("History");
    EXPECT_TRUE(stage.reads(mode.historyWord));
    stage.press("Done");
    EXPECT_FALSE(stage.state().showHistory());
}

INSTANTIATE_TEST_SUITE_P(CleanScreen, EachMode, ::testing::Range<std::size_t>(0, modes.size()),
                         [](const auto& mode) { return std::string(modes.at(mode.param).tab); });

TEST(CleanScreen, APreviewSaysThatItIsOne) {
    AppDriver stage;
    stage.state().preferences()->setDryRun(true);
    CleanListModel& list = *stage.state().clean()->junk();
    scanAndReview(stage, list);
    EXPECT_TRUE(stage.reads("Preview mode"));
    cleanUntilDone(stage, list, "Preview");
    EXPECT_TRUE(stage.reads("Preview mode is on — nothing was touched"));
}

TEST(CleanScreen, IsWorkedByKeysAlone) {
    AppDriver stage;
    CleanListModel& list = *stage.state().clean()->junk();
    stage.type(Qt::Key_Space);  // what stands for the thing to do has the focus
    stage.until("the scan's end", [&] { return list.stage() == CleanListModel::Stage::Ready; });
    list.setReviewing(true);
    stage.settle();

    const int selected = list.selectedCount();
    const auto rows = stage.texts().size();
    stage.type(Qt::Key_Down);
    stage.type(Qt::Key_Right);
    EXPECT_GT(stage.texts().size(), rows) << "the card under the focus did not open";
    stage.type(Qt::Key_Space);
    EXPECT_NE(list.selectedCount(), selected);
    stage.type(Qt::Key_Escape);
    EXPECT_FALSE(list.reviewing());
}

TEST(CleanScreen, AnEmptyTrashIsAskedForTwice) {
    AppDriver stage;
    stage.state().preferences()->setAlwaysTrash(true);
    CleanListModel& list = *stage.state().clean()->junk();
    scanAndReview(stage, list);
    cleanUntilDone(stage, list, "Clean");
    const fs::path trash = stage.mac().home() / ".Trash";
    ASSERT_FALSE(fs::is_empty(trash));

    stage.press("Empty Trash");
    EXPECT_TRUE(stage.reads("Empty the Trash?"));
    stage.press("Cancel");
    EXPECT_FALSE(fs::is_empty(trash));

    stage.press("Empty Trash");
    stage.press("Empty Trash");  // the one of the question lies on top
    stage.until("an empty Trash", [&] { return stage.state().clean()->trashEmptier()->isEmptied(); });
    EXPECT_TRUE(fs::is_empty(trash));
    EXPECT_FALSE(stage.textWith("Trash emptied · ").isEmpty());
}

TEST(CleanScreen, SaysSoWhenThereIsNothing) {
    AppDriver stage;
    fs::remove_all(stage.mac().home() / "Downloads");
    fs::remove_all(stage.mac().home() / "Desktop");
    fs::remove_all(stage.mac().home() / "Documents");
    fs::remove_all(stage.mac().root() / "Applications");
    stage.press("Installers");
    stage.press("Scan");
    stage.until("the scan's end",
                [&] { return stage.state().clean()->installers()->stage() == CleanListModel::Stage::Ready; });
    EXPECT_TRUE(stage.reads("All clear"));
    EXPECT_TRUE(stage.reads("Nothing worth removing right now"));
    EXPECT_FALSE(stage.reads("Review results"));
}

TEST(HistorySheet, PutsBackWhatARunMovedToTheTrash) {
    AppDriver stage;
    stage.press("Installers");
    CleanListModel& list = *stage.state().clean()->installers();
    scanAndReview(stage, list);
    cleanUntilDone(stage, list, "Remove");
    stage.press("History");
    HistoryModel& history = *stage.state().clean()->history();
    const auto told = [&](HistoryModel::Role role) {
        return history.data(history.index(0), static_cast<int>(role));
    };
    stage.until("a look into the Trash", [&] { return told(HistoryModel::Role::waiting).toInt() > 0; });
    stage.press(told(HistoryModel::Role::date).toString());
    stage.press("Put back");
    stage.until("the way back", [&] { return !history.isRestoring(); });
    const std::string home = stage.mac().home().native() + "/";
    for (const CleanItem& item : list.report()->removed) {
        EXPECT_EQ(fs::exists(item.url), item.url.native().starts_with(home)) << item.url;
    }
    EXPECT_FALSE(stage.textWith(" put back").isEmpty());
    EXPECT_FALSE(stage.textWith("skipped: It was outside your home folder").isEmpty());
}

TEST(HistorySheet, ShowsNothingForGarbageAndLeavesIt) {
    AppDriver stage;
    const fs::path file = stage.mac().profile().places.history();
    fs::create_directories(file.parent_path());
    std::ofstream(file) << "{ not a list";
    stage.press("History");
    EXPECT_TRUE(stage.reads("Nothing cleaned yet."));
    EXPECT_FALSE(stage.reads("Clear"));
    EXPECT_EQ(contentOf(file), "{ not a list");
}

}  // namespace
}  // namespace tavrel::testing
