#include "models/clean/CleanFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::CleanFixture;
using testing::FakeIconSource;
using ::testing::IsEmpty;
using testing::safeItem;
using Items = CleanFixture::Items;
using PathList = Preferences::PathList;

TEST(CleanJob, TheJobIsToldWhatHoldsWhenItBegins) {
    CleanFixture desk;
    const auto folder = desk.sandbox.folder("home/kept");
    desk.list->setExtraRoots({"/Applications"});
    desk.find({safeItem((folder / "cache").native())});
    desk.preferences.addFolders(PathList::ProtectedPaths, std::vector<std::filesystem::path>{folder});
    desk.preferences.setAlwaysTrash(true);
    desk.list->clean();
    desk.preferences.removeFolder(PathList::ProtectedPaths, 0);  // too late for this run
    desk.preferences.setAlwaysTrash(false);

    const CleanJob& job = desk.runner.jobs.at(0);
    EXPECT_FALSE(job.guard.check(folder / "cache").isAllowed());
    EXPECT_TRUE(job.guard.check(desk.sandbox.path("home/other")).isAllowed());
    EXPECT_TRUE(job.guard.check("/Applications/Painter.app").isAllowed());
    EXPECT_TRUE(job.options.alwaysTrash);
    EXPECT_FALSE(job.options.dryRun);
}

TEST(CleanJob, NothingGoesWhileTheProtectedFoldersAreUnknown) {
    for (const char* settings :
         {"no property list",
          "<plist version=\"1.0\"><dict><key>protectedPaths</key><string>~/Keep</string></dict></plist>"}) {
        SCOPED_TRACE(settings);
        CleanFixture desk("clean", settings);
        const Items items = {safeItem("/a/1"), safeItem("/a/2")};
        desk.find(items);
        desk.list->clean();
        EXPECT_THAT(desk.runner.jobs, IsEmpty());
        ASSERT_NE(desk.list->report(), nullptr);
        EXPECT_THAT(desk.list->report()->removed, IsEmpty());
        EXPECT_EQ(desk.list->report()->skipped.size(), 2U);
        EXPECT_EQ(desk.list->items(), items);
        EXPECT_EQ(desk.list->selectedCount(), 2);
        EXPECT_EQ(desk.player.sounds, 0);
    }
    CleanFixture preview("clean",
                         "<plist version=\"1.0\"><dict><key>protectedPaths</key><string>~/Keep</string>"
                         "<key>dryRun</key><true/></dict></plist>");
    preview.find({safeItem("/a/1")});
    preview.list->clean();
    EXPECT_EQ(preview.runner.jobs.size(), 1U);
}

TEST(CleanJob, OnlyAnUninstallShowsTheIconsOfTheThingsThemselves) {
    for (const auto& [action, own] : {std::pair("clean", false), std::pair("uninstall", true)}) {
        CleanFixture desk(action);
        const auto file = desk.sandbox.text("home/Painter.app/Contents/notes.txt", "x");
        desk.find({safeItem(file.native())});
        desk.list->clean();
        desk.runner.report({});
        desk.clock.advance(0.1);
        const auto& events = desk.list->feed()->events();
        ASSERT_EQ(events.size(), 1U) << action;
        const auto shown = own ? file : file.parent_path().parent_path();
        EXPECT_EQ(FakeIconSource::label(events[0].icon), "file " + shown.native());
        EXPECT_EQ(desk.runner.jobs.at(0).action, action);
    }
}

}  // namespace
}  // namespace tavrel
