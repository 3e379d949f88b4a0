#include "models/analyze/AnalyzeRows.h"
#include "models/analyze/ExplorerFixture.h"
#include "models/support/PathUrl.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using testing::ExplorerFixture;
using ::testing::IsEmpty;
using Role = AnalyzeRows::Role;
using Column = AnalyzeRows::Column;

constexpr std::int64_t mebibyte = 1024LL * 1024;

class AnalyzeRowsTest : public ::testing::Test {
  protected:
    AnalyzeRowsTest() { rows.setSource(desk.model.get()); }

    [[nodiscard]] QVariant at(int row, Role role) const {
        return rows.data(rows.index(row), static_cast<int>(role));
    }
    [[nodiscard]] std::vector<std::string> column(Role role) const {
        std::vector<std::string> all;
        all.reserve(static_cast<std::size_t>(rows.count()));
        for (int row = 0; row < rows.count(); ++row) all.push_back(at(row, role).toString().toStdString());
        return all;
    }
    void publish() { desk.clock.advance(1.0); }

    ExplorerFixture desk;
    AnalyzeRows rows;
    const QAbstractItemModelTester tester{&rows, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(AnalyzeRowsTest, ARowTellsItsFigures) {
    desk.load({{"big", 997 * mebibyte}, {"tiny", 3 * mebibyte}, {"kept", {}}, {"new\nline", {}}});
    EXPECT_THAT(column(Role::name), ElementsAre("big", "kept", "new\\nline", "tiny"));
    EXPECT_THAT(column(Role::sizeText), ElementsAre("1.05 GB", "", "", "3.1 MB"));
    EXPECT_THAT(column(Role::percentText), ElementsAre("100", "", "", "0"));
    EXPECT_THAT(column(Role::filesText), ElementsAre("1", "", "", "1"));
    EXPECT_THAT(column(Role::measured), ElementsAre("true", "false", "false", "true"));
    EXPECT_THAT(column(Role::isFolder), ElementsAre("false", "true", "true", "false"));
    EXPECT_THAT(column(Role::colorIndex), ElementsAre("0", "-1", "-1", "-1"));  // tiny is under 0.4 %
    EXPECT_THAT(column(Role::removable), ElementsAre("false", "false", "false", "false"));  // as yet
    EXPECT_EQ(at(1, Role::reason).toString(), "");
    desk.work.endVetting();
    EXPECT_THAT(column(Role::removable), ElementsAre("true", "false", "true", "true"));
    EXPECT_EQ(at(1, Role::reason).toString(), "system folder");
    EXPECT_EQ(at(0, Role::folderPath).toString().toStdString(), desk.home().native());

    desk.measured("new\nline", 500 * mebibyte, 1'500);
    publish();
    EXPECT_THAT(column(Role::colorIndex), ElementsAre("0", "1", "-1", "-1"));
    EXPECT_EQ(at(1, Role::filesText).toString(), "1.5k");
}

TEST_F(AnalyzeRowsTest, RowsMoveAndNeverBeginAnewWhileFiguresComeIn) {
    ExplorerFixture::Things things;
    for (int at = 100; at < 300; ++at) things[std::to_string(at)] = std::nullopt;
    desk.load(things);
    const QSignalSpy resets(&rows, &QAbstractItemModel::modelReset);
    const QPersistentModelIndex followed = rows.index(150);
    for (const std::size_t atOnce : {1U, 3U, 4U, 80U, 112U}) {  // few move one by one, many at once
        for (std::size_t done = 0; done < atOnce; ++done) {
            const auto path = desk.work.walks.back().path;
            const auto number = std::stoll(path.filename());
            desk.work.endWalk(path, {.size = number * 7 % 191 * mebibyte, .files = 1, .folders = {}});
        }
        publish();
        std::vector<std::string> wanted;
        for (const auto& entry : desk.model->entries()) wanted.push_back(entry.url.filename());
        ASSERT_EQ(column(Role::name), wanted);
        EXPECT_EQ(rows.data(followed, static_cast<int>(Role::name)), "250");
        EXPECT_EQ(rows.rowOf(PathUrl::of(desk.at("250"))), followed.row());
    }
    EXPECT_EQ(desk.model->pendingCount(), 0);

    for (int row = 0; row < 200; row += 2) desk.model->toggleSelection(*rows.entry(row));
    const QSignalSpy removals(&rows, &QAbstractItemModel::rowsRemoved);
    desk.model->trashSelected();
    desk.report({.removed = desk.runner.jobs.front().items});
    EXPECT_EQ(rows.count(), 100);
    EXPECT_EQ(removals.size(), 1);
    EXPECT_EQ(followed.isValid(), rows.rowOf(PathUrl::of(desk.at("250"))) >= 0);
    EXPECT_EQ(resets.size(), 0);
}

TEST_F(AnalyzeRowsTest, ColumnsSortBothWaysAndKeepDoingSo) {
    desk.load({{"a", 10}, {"b", {}}, {"c", 30}, {"d", {}}});
    desk.measured("d", 20, 9);
    publish();
    EXPECT_THAT(column(Role::name), ElementsAre("b", "c", "d", "a"));
    rows.sortBy(Column::Name);  // names from the first, figures from the largest
    EXPECT_THAT(column(Role::name), ElementsAre("a", "b", "c", "d"));
    rows.sortBy(Column::Name);
    EXPECT_THAT(column(Role::name), ElementsAre("d", "c", "b", "a"));
    rows.sortBy(Column::Files);
    EXPECT_THAT(column(Role::name), ElementsAre("d", "c", "a", "b"));
    desk.measured("b", 1, 90);
    publish();
    EXPECT_THAT(column(Role::name), ElementsAre("b", "d", "c", "a"));
    EXPECT_EQ(rows.indexOfName("A"), 3);
    EXPECT_EQ(rows.indexOfName("b", 2), 0);
    EXPECT_EQ(rows.indexOfName("x"), -1);
}

TEST_F(AnalyzeRowsTest, WhatARowDoesIsDoneToItsEntry) {
    const std::string odd = "b\xff%41 #?\n";
    desk.load({{"a", {}}, {odd, 5}, {"kept", 3}});
    rows.enter(rows.url(0));
    EXPECT_THAT(column(Role::lit), ElementsAre("true", "false", "false"));
    desk.model->setFocus(AnalyzeFocuses::Slice{{.url = desk.at("a/x")}});
    EXPECT_EQ(at(0, Role::lit), true);
    rows.leave(rows.url(0));  // the focus is not the row's own
    EXPECT_TRUE(desk.model->focus());
    for (const int row : {-1, 0, 2, 3}) rows.toggle(rows.url(row));
    EXPECT_THAT(column(Role::selected), ElementsAre("true", "false", "false"));
    rows.trash(rows.url(2));
    EXPECT_FALSE(desk.model->isRemoving());
    rows.trash(rows.url(1));
    EXPECT_EQ(desk.runner.jobs.front().items.front().url, desk.at(odd));
    desk.report({.removed = desk.runner.jobs.front().items});
    EXPECT_THAT(column(Role::name), ElementsAre("a", "kept"));
    rows.open(rows.url(1));
    rows.open(rows.url(0));
    EXPECT_EQ(desk.model->currentFolder(), desk.at("a"));
    desk.endListing({});
    EXPECT_THAT(column(Role::name), IsEmpty());
    desk.model.reset();
    EXPECT_EQ(rows.count(), 0);
}

}  // namespace
}  // namespace tavrel
