#include "cleaning/CleaningHome.h"
#include "core/ByteCount.h"
#include "disk/FileSizer.h"
#include "models/clean/CleanFixture.h"
#include "models/clean/TrashEmptier.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::CleaningHome;
using testing::HeldRunner;
using testing::waitUntil;

TEST(TrashEmptier, EverythingInTheTrashGoesAndTheButtonSaysHowMuch) {
    CleaningHome home;
    ASSERT_EQ(home.clean({home.item("thing")})->removed.size(), 1U);
    const auto contents = home.trash->contents();
    home.stage.sandbox.file(contents / "mine/deep/file", 300'000);
    const auto size = FileSizer::size(contents / "mine") + FileSizer::size(contents / "thing");

    TrashEmptier emptier(*home.cleaner);
    EXPECT_EQ(emptier.emptiedText(), "");
    emptier.empty();
    EXPECT_TRUE(emptier.isWorking());
    EXPECT_FALSE(emptier.isEmptied());
    ASSERT_TRUE(waitUntil([&] { return !emptier.isWorking(); }));
    EXPECT_TRUE(emptier.isEmptied());
    EXPECT_EQ(emptier.emptiedText().toStdString(), "Trash emptied · " + byteCount(size));
    EXPECT_TRUE(fs::is_directory(contents));
    EXPECT_TRUE(fs::is_empty(contents));
    EXPECT_TRUE(fs::is_empty(contents.parent_path() / "info"));
    EXPECT_TRUE(fs::exists(home.stage.outside() / "canary"));

    emptier.empty();
    ASSERT_TRUE(waitUntil([&] { return !emptier.isWorking(); }));
    EXPECT_EQ(emptier.emptiedText(), "Trash emptied · Zero KB");
}

TEST(TrashEmptier, WorksOnceAtATimeAndForgetsWhatItSaid) {
    HeldRunner runner;
    TrashEmptier emptier(runner);
    emptier.empty();
    emptier.empty();
    EXPECT_EQ(runner.emptying.begun, 1);
    runner.emptying.end(5'000'000);
    EXPECT_EQ(emptier.emptiedText(), "Trash emptied · 5 MB");
    emptier.forget();
    EXPECT_FALSE(emptier.isEmptied());
    EXPECT_EQ(emptier.emptiedText(), "");
    emptier.empty();
    EXPECT_EQ(runner.emptying.begun, 2);
    runner.emptying.end(0);
    EXPECT_TRUE(emptier.isEmptied());
}

TEST(TrashEmptier, MayBeDestroyedWhileItWorks) {
    HeldRunner runner;
    auto emptier = std::make_unique<TrashEmptier>(runner);
    int told = 0;
    QObject::connect(emptier.get(), &TrashEmptier::changed, [&] { ++told; });
    emptier->empty();
    emptier.reset();
    runner.emptying.end(1);
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace tavrel
