#include "cleaning/CleaningHome.h"
#include "core/DateText.h"
#include "models/clean/HistoryModel.h"
#include "support/EventLoop.h"

#include <QAbstractItemModelTester>
#include <chrono>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::CleaningHome;
using testing::waitUntil;
using Role = HistoryModel::Role;
using namespace std::chrono_literals;

class HistoryModelTest : public ::testing::Test {
  protected:
    void record(const std::string& action, std::vector<std::string> paths, std::int64_t bytes) const {
        const auto count = static_cast<std::int64_t>(paths.size());
        const auto error = History::record(file, {.id = History::newIdentifier(),
                                                  .date = date,
                                                  .action = action,
                                                  .count = count,
                                                  .bytes = bytes,
                                                  .paths = std::move(paths)});
        ASSERT_FALSE(error);
    }
    [[nodiscard]] QVariant at(int row, Role role) const {
        return model.data(model.index(row), static_cast<int>(role));
    }
    [[nodiscard]] std::string text(int row, Role role) const {
        return at(row, role).toString().toStdString();
    }

    const CleaningHome home;
    const std::filesystem::path file = home.stage.sandbox.path("support/history.json");
    const Instant date = std::chrono::sys_days(std::chrono::year(2026) / 3 / 9) + 12h;
    HistoryModel model{file, *home.cleaner};
    const QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(HistoryModelTest, TellsEachRunAsAUserReadsItNewestFirst) {
    record("clean\n\x1b[31m", {"/home/ana/one"}, 1'000);  // no action can forge what is read
    record("purge", {"/home/ana/two\nlines", "/home/ana/\\xFF", "/home/ana/tail\\\\"}, 2'500'000);
    EXPECT_EQ(model.count(), 0);  // read when the sheet opens, not before
    model.load();
    ASSERT_EQ(model.count(), 2);
    EXPECT_EQ(text(0, Role::action), "purge");
    EXPECT_EQ(text(0, Role::countText), "3 items");
    EXPECT_EQ(text(0, Role::size), "2.5 MB");
    EXPECT_EQ(at(0, Role::paths).toString().split('\n'),
              QStringList({"/home/ana/two\\nlines", "/home/ana/\\xFF", "/home/ana/tail\\"}));
    EXPECT_EQ(text(0, Role::date), dateAndTime(date));
    EXPECT_EQ(text(1, Role::action), "clean\\n\\x1B[31m");
    EXPECT_EQ(text(1, Role::countText), "1 item");
}

TEST_F(HistoryModelTest, ReadsTheFileAnewEachTimeItIsAsked) {
    record("clean", {"/a"}, 1);
    model.load();
    record("ai", {"/b"}, 2);
    EXPECT_EQ(model.count(), 1);
    model.load();
    EXPECT_EQ(text(0, Role::action), "ai");
    EXPECT_EQ(model.count(), 2);
    home.stage.sandbox.text("support/history.json", "[{\"id\": 7}]");
    model.load();
    EXPECT_EQ(model.count(), 0);
}

TEST_F(HistoryModelTest, WhatWaitsInTheTrashIsPutBackAndTheRowSaysSo) {
    const std::vector<CleanItem> items = {home.item("a"), home.item("b"), home.item("c")};
    ASSERT_TRUE(home.clean(items));
    std::filesystem::remove(home.trash->contents() / "b");
    record("clean", {"/gone"}, 1);
    model.load();
    ASSERT_TRUE(waitUntil([&] { return at(1, Role::waiting) == 2; }));
    EXPECT_EQ(text(0, Role::note), "1 item deleted for good");
    EXPECT_EQ(text(1, Role::note), "1 item is not in the Trash any more");
    const auto path = QString::fromStdString(items[0].url.native());
    EXPECT_TRUE(at(1, Role::paths).toString().startsWith(path + " · in the Trash\n"));

    static_cast<void>(home.item("a"));  // made again since
    model.putBack(1);
    model.putBack(1);  // one at a time
    EXPECT_TRUE(model.isRestoring());
    ASSERT_TRUE(waitUntil([&] { return !model.isRestoring(); }));
    EXPECT_TRUE(std::filesystem::exists(items[2].url));
    EXPECT_EQ(at(1, Role::waiting), 1);
    EXPECT_EQ(text(1, Role::note), "1 item put back\n1 skipped: Something else stands in its place now");
}

TEST_F(HistoryModelTest, ClearingTakesTheFileAwayAndTellsTheSheet) {
    record("clean", {"/a"}, 1);
    model.load();
    int told = 0;
    QObject::connect(&model, &HistoryModel::countChanged, [&] { ++told; });
    model.clear();
    EXPECT_EQ(model.count(), 0);
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(std::filesystem::exists(file));
    model.clear();
    model.load();
    EXPECT_EQ(model.count(), 0);
}

}  // namespace
}  // namespace tavrel
