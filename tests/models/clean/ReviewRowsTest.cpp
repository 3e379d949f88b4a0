#include "models/clean/CleanFixture.h"
#include "models/clean/ReviewRows.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::CleanFixture;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::reviewItem;
using testing::safeItem;
using Role = ReviewRows::Role;
using Mark = ReviewRows::Mark;
using Items = CleanFixture::Items;
using Lines = std::vector<std::string>;
using enum CleanCategory;

/// The rows over a list, watched by the tester of models from their first to their last moment.
class ReviewRowsTest : public ::testing::Test {
  protected:
    ReviewRowsTest() { rows.setSource(desk.list.get()); }

    [[nodiscard]] QVariant at(int row, Role role) const {
        return rows.data(rows.index(row), static_cast<int>(role));
    }
    [[nodiscard]] std::string text(int row, Role role) const {
        return at(row, role).toString().toStdString();
    }
    [[nodiscard]] Mark mark(int row) const { return static_cast<Mark>(at(row, Role::mark).toInt()); }

    /// What a user sees: "+" before an open head, "-" before a closed one, and the mark of each row.
    [[nodiscard]] Lines lines() const {
        static constexpr const char* marks[] = {"[ ] ", "[~] ", "[x] "};
        Lines all;
        for (int row = 0; row < rows.count(); ++row) {
            const bool open = at(row, Role::expanded).toBool();
            const std::string kind = !at(row, Role::isHead).toBool() ? "  " : open ? "+ " : "- ";
            all.push_back(kind + marks[static_cast<int>(mark(row))] + text(row, Role::title));
        }
        return all;
    }
    [[nodiscard]] std::vector<int> lastRows() const {
        std::vector<int> all;
        for (int row = 0; row < rows.count(); ++row) {
            if (at(row, Role::isLast).toBool()) all.push_back(row);
        }
        return all;
    }

    CleanFixture desk;
    ReviewRows rows;
    const QAbstractItemModelTester tester{&rows, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ReviewRowsTest, EachCategoryHasAHeadAndItsItemsWhenItIsOpen) {
    EXPECT_EQ(rows.count(), 0);
    desk.find({safeItem("/l/1", 1'000, logs), safeItem("/c/2", 1'000), safeItem("/l/3", 1'000, logs)});
    EXPECT_THAT(lines(), ElementsAre("- [x] App caches", "- [x] Logs & crash reports"));
    EXPECT_THAT(lastRows(), ElementsAre(0, 1));

    rows.toggleExpanded(1);
    EXPECT_THAT(lines(), ElementsAre("- [x] App caches", "+ [x] Logs & crash reports", "  [x] 1", "  [x] 3"));
    EXPECT_THAT(lastRows(), ElementsAre(0, 3));
    rows.toggleExpanded(0);
    EXPECT_THAT(lines(), ElementsAre("+ [x] App caches", "  [x] 2", "+ [x] Logs & crash reports", "  [x] 1",
                                     "  [x] 3"));
    EXPECT_THAT(lastRows(), ElementsAre(1, 4));
    EXPECT_EQ(rows.path(0), "");
    EXPECT_EQ(rows.path(4), "/l/3");

    for (const int row : {1, 4, -1, 5, 0}) rows.toggleExpanded(row);  // only the last is a head
    EXPECT_THAT(lines(), ElementsAre("- [x] App caches", "+ [x] Logs & crash reports", "  [x] 1", "  [x] 3"));
}

TEST_F(ReviewRowsTest, TheMarkOfAHeadSumsUpItsItems) {
    desk.find({safeItem("/c/1", 1'000), reviewItem("/c/2", 20'000), reviewItem("/l/3", 5'000, logs)});
    rows.toggleExpanded(0);
    EXPECT_THAT(lines(), ElementsAre("+ [~] App caches", "  [x] 1", "  [ ] 2", "- [ ] Logs & crash reports"));
    EXPECT_EQ(text(0, Role::countText), "2 items");
    EXPECT_EQ(text(0, Role::selectedText), "1 selected");
    EXPECT_EQ(text(0, Role::size), "1 KB");
    EXPECT_EQ(text(3, Role::countText), "1 item");

    rows.toggle(0);  // mixed becomes all
    EXPECT_THAT(lines(), ElementsAre("+ [x] App caches", "  [x] 1", "  [x] 2", "- [ ] Logs & crash reports"));
    EXPECT_EQ(text(0, Role::selectedText), "2 selected");
    EXPECT_EQ(text(0, Role::size), "21 KB");
    rows.toggle(0);
    EXPECT_THAT(lines(), ElementsAre("+ [ ] App caches", "  [ ] 1", "  [ ] 2", "- [ ] Logs & crash reports"));
    rows.toggle(2);
    rows.toggle(3);
    EXPECT_THAT(lines(), ElementsAre("+ [~] App caches", "  [ ] 1", "  [x] 2", "- [x] Logs & crash reports"));
    for (const int none : {-1, 4}) rows.toggle(none);
    EXPECT_EQ(desk.list->selectedCount(), 2);
}

TEST_F(ReviewRowsTest, WhateverShowsASelectionIsToldOfItsChange) {
    desk.find({safeItem("/c/1"), safeItem("/l/2", 1'000, logs)});
    rows.toggleExpanded(1);
    const QSignalSpy told(&rows, &QAbstractItemModel::dataChanged);
    rows.toggle(2);
    std::set<std::pair<int, Role>> changed;
    for (const auto& signal : told) {
        const int last = signal.at(1).toModelIndex().row();
        for (int row = signal.at(0).toModelIndex().row(); row <= last; ++row) {
            for (const int role : signal.at(2).value<QList<int>>())
                changed.emplace(row, static_cast<Role>(role));
        }
    }
    const std::vector<std::pair<int, Role>> wanted = {
        {1, Role::mark}, {1, Role::selectedText}, {1, Role::size}, {2, Role::mark}};
    EXPECT_THAT(changed, ::testing::IsSupersetOf(wanted));
}

TEST_F(ReviewRowsTest, OpenCategoriesStayOpenWhenTheListChanges) {
    const Items items = {safeItem("/c/1"), safeItem("/c/2"), safeItem("/l/3", 1'000, logs)};
    desk.find(items);
    rows.toggleExpanded(1);
    rows.toggleExpanded(0);
    desk.clean({.removed = {items[0]}, .skipped = {{items[1], "in use"}, {items[2], "in use"}}});
    EXPECT_THAT(lines(), ElementsAre("+ [x] App caches", "  [x] 2", "+ [x] Logs & crash reports", "  [x] 3"));
    desk.find({safeItem("/t/9", 1'000, trash), reviewItem("/l/3", 1'000, logs)});
    EXPECT_THAT(lines(), ElementsAre("+ [ ] Logs & crash reports", "  [ ] 3", "- [x] Trash"));
    desk.find({});
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(ReviewRowsTest, AnotherListIsShownAfreshAndAGoneOneNotAtAll) {
    desk.find({safeItem("/c/1")});
    rows.toggleExpanded(0);
    CleanFixture other;
    other.find({safeItem("/c/7"), reviewItem("/c/8")});
    rows.setSource(other.list.get());
    EXPECT_THAT(lines(), ElementsAre("- [~] App caches"));
    const QSignalSpy told(&rows, &QAbstractItemModel::modelReset);
    desk.find({safeItem("/c/1"), safeItem("/l/2", 1'000, logs)});
    EXPECT_EQ(told.size(), 0);

    other.list.reset();
    EXPECT_FALSE(at(0, Role::title).isValid());
    rows.toggle(0);
    rows.toggleExpanded(0);
    EXPECT_EQ(rows.path(0), "");
    rows.setSource(desk.list.get());
    EXPECT_EQ(rows.count(), 2);
    rows.setSource(nullptr);
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(ReviewRowsTest, NoNameCanForgeWhatIsRead) {
    CleanItem item = safeItem("/c/two\nlines\x1b[31m \xff");
    item.note = "see\tbelow\n";
    desk.find({item});
    rows.toggleExpanded(0);
    EXPECT_EQ(text(1, Role::title), "two\\nlines\\x1B[31m \\xFF");
    EXPECT_EQ(text(1, Role::summary), "see\\tbelow\\n");
    EXPECT_EQ(rows.path(1).toStdString(), "/c/two\nlines\x1b[31m \uFFFD");
}

TEST_F(ReviewRowsTest, EachItemCarriesItsChips) {
    Items items = {safeItem("/c/1"), reviewItem("/c/2"), safeItem("/c/3"), safeItem("/c/4")};
    items[2].permanent = true;
    items[3].requiresAdmin = true;
    desk.find(items);
    rows.toggleExpanded(0);
    constexpr Role chips[] = {Role::review, Role::permanent, Role::admin};
    for (int row = 1; row <= 4; ++row) {
        for (int chip = 0; chip < 3; ++chip) EXPECT_EQ(at(row, chips[chip]).toBool(), row == chip + 2) << row;
    }
}

TEST_F(ReviewRowsTest, ACommandIsShownAsItStandsAndHasNoPathToReveal) {
    const ToolRun run{RootTool::uninstallRuntime, {"runtime/a/b/1"}};
    const std::string command = RootTools::commandLine(run).value_or("");
    const std::pair<std::string, std::string> titles[] = {{command, command}, {"/.snapshot/2026", "2026"}};
    for (const auto& [url, title] : titles) {
        CleanItem item = reviewItem(url, 0);
        item.rootTool = run;
        desk.find({item});
        if (rows.count() == 1) rows.toggleExpanded(0);
        EXPECT_EQ(text(1, Role::title), title);
        EXPECT_EQ(text(1, Role::size), "size unknown");
        EXPECT_EQ(rows.path(1), "");
    }
    EXPECT_THAT(CleanCategories::summary(CleanCategory::systemData, 0), Not(HasSubstr("password")));
    EXPECT_THAT(CleanCategories::summary(CleanCategory::systemData, 1000), HasSubstr("password"));
}

TEST_F(ReviewRowsTest, AHugeCategoryOpensAndIsMarkedAsAWhole) {
    constexpr int count = 20'000;
    Items items = {safeItem("/l/1", 1'000, logs)};
    for (int i = 0; i < count; ++i) items.push_back(reviewItem("/c/" + std::to_string(i), 1'000));
    desk.find(items);
    rows.toggleExpanded(0);
    ASSERT_EQ(rows.count(), count + 2);
    EXPECT_EQ(text(count, Role::title), "19999");
    rows.toggle(0);
    EXPECT_EQ(mark(0), Mark::On);
    EXPECT_EQ(mark(count), Mark::On);
    EXPECT_EQ(text(0, Role::selectedText), "20000 selected");
    EXPECT_EQ(text(0, Role::size), "20 MB");
    rows.toggle(count / 2);
    EXPECT_EQ(desk.list->selectedCount(), count);  // with the log
    rows.toggleExpanded(0);
    EXPECT_THAT(lines(), ElementsAre("- [~] App caches", "- [x] Logs & crash reports"));
}

}  // namespace
}  // namespace tavrel
