#include "cleaning/Cleaner.h"
#include "cleaning/History.h"
#include "cleaning/RemovalSandbox.h"
#include "platform/linux/files/LinuxFolderAccess.h"
#include "support/FakeAdministrator.h"

#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Layout;
using testing::RemovalSandbox;

class CleanerTest : public ::testing::Test {
  protected:
    CleanerTest() { stage.sandbox.folder("system"); }

    [[nodiscard]] CleanReport clean(const std::vector<CleanItem>& items, Cleaner::Options options = {}) {
        const Cleaner cleaner({.access = *access,
                               .trash = *trash,
                               .administrator = administrator,
                               .systemRoots = {stage.sandbox.path("system")},
                               .history = history(),
                               .now = [] { return Instant(); }});
        fractions.clear();
        return cleaner.clean(items, "clean", safety, options,
                             [this](double done) { fractions.push_back(done); });
    }

    /// A file of 10 bytes below the home, said to free `size`.
    [[nodiscard]] CleanItem item(const std::string& name, CleanCategory category, Risk risk = Risk::safe,
                                 std::int64_t size = 100) const {
        return {
            .url = stage.sandbox.file("home/" + name, 10), .size = size, .category = category, .risk = risk};
    }
    [[nodiscard]] CleanItem adminItem(const fs::path& path, std::int64_t size = 100) const {
        return {.url = path, .size = size, .category = CleanCategory::systemData, .requiresAdmin = true};
    }

    [[nodiscard]] fs::path history() const { return stage.sandbox.path("support/history.json"); }
    [[nodiscard]] bool isTrashed(const CleanItem& thing) const {
        return fs::exists(trash->contents() / thing.url.filename());
    }
    static std::vector<std::string> reasons(const CleanReport& report) {
        std::vector<std::string> all;
        for (const auto& skipped : report.skipped) all.push_back(skipped.reason);
        return all;
    }

    RemovalSandbox stage;
    const FolderAccess* access = &systemFolderAccess();
    SafetyGuard safety = stage.guard();
    std::unique_ptr<Trash> trash = makeTrash(Layout::freedesktop, systemFolderAccess(), stage.home());
    testing::FakeAdministrator administrator;
    std::vector<double> fractions;
};

TEST_F(CleanerTest, whereEachKindOfItemGoes) {
    using enum CleanCategory;
    struct Case {
        const char* name;
        CleanCategory category;
        Risk risk;
        bool permanent;
        bool alwaysTrash;
        bool trashed;
    };
    const std::vector<Case> cases = {
        {"safe cache", userCaches, Risk::safe, false, false, false},
        {"safe cache, always trash", userCaches, Risk::safe, false, true, true},
        {"review cache", userCaches, Risk::review, false, false, true},
        {"safe installer", installers, Risk::safe, false, false, true},
        {"safe model", aiModels, Risk::safe, false, false, true},
        {"permanent installer", installers, Risk::safe, true, false, false},
        {"permanent beats all", iosBackups, Risk::review, true, true, false},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        auto thing = item(row.name, row.category, row.risk);
        thing.permanent = row.permanent;
        for (const bool dryRun : {true, false}) {
            const auto report = clean({thing}, {.dryRun = dryRun, .alwaysTrash = row.alwaysTrash});
            EXPECT_EQ(report.dryRun, dryRun);
            EXPECT_THAT(report.removed, ElementsAre(thing));
            EXPECT_THAT(report.skipped, IsEmpty());
            EXPECT_EQ(report.freed, 100);
            EXPECT_EQ(report.trashed, row.trashed ? 100 : 0);
            EXPECT_EQ(fs::exists(thing.url), dryRun);
            EXPECT_EQ(isTrashed(thing), !dryRun && row.trashed);
        }
    }
}

/// An old kernel, which does not say which mount a thing is on.
class Untold : public LinuxFolderAccess {
  public:
    Outcome<FileIdentity> identify(int /*handle*/) const override { return unsupported(); }
    Outcome<FileIdentity> identify(int /*folder*/, const std::string& /*name*/) const override {
        return unsupported();
    }

  private:
    static tl::unexpected<std::error_code> unsupported() {
        return tl::unexpected(std::make_error_code(std::errc::not_supported));
    }
};

TEST_F(CleanerTest, whatCannotBeToldApartIsSkippedInWordsAndNotTakenAsGone) {
    const Untold untold;
    access = &untold;
    const auto report =
        clean({item("cache", CleanCategory::userCaches), adminItem(stage.sandbox.file("system/log", 10))});
    EXPECT_THAT(report.removed, IsEmpty());
    EXPECT_THAT(reasons(report), ::testing::Each("This system does not distinguish mounted disks"));
    EXPECT_EQ(report.skipped.size(), 2U);
    EXPECT_TRUE(fs::exists(stage.home() / "cache"));
}

TEST_F(CleanerTest, aPreviewTellsWhatTheRealRunWouldAndTouchesNothing) {
    const std::vector<CleanItem> items = {
        item("cache", CleanCategory::userCaches, Risk::safe, 1),
        item("barred", CleanCategory::userCaches, Risk::safe, 2),
        {.url = stage.home() / "gone", .size = 4},
        item("review", CleanCategory::logs, Risk::review, 8),
        adminItem(stage.sandbox.file("system/log", 10), 16),
        adminItem(stage.sandbox.path("system/gone"), 64),
        adminItem(stage.outside() / "canary", 32),
    };
    safety.protectedPaths = {stage.home() / "barred"};
    const auto before = testing::snapshot(stage.sandbox.root());

    auto preview = clean(items, {.dryRun = true});
    EXPECT_EQ(testing::snapshot(stage.sandbox.root()), before);
    EXPECT_THAT(administrator.batches, IsEmpty());
    EXPECT_EQ(preview.freed, 25);
    EXPECT_EQ(preview.trashed, 8);

    preview.dryRun = false;
    auto real = clean(items);
    EXPECT_THAT(std::exchange(real.inTrash, {}), ::testing::SizeIs(1)) << "what a preview cannot know";
    EXPECT_EQ(real, preview);
    EXPECT_THAT(reasons(real), ElementsAre("protected in Settings", "outside the folders Tavrel cleans"));
}

TEST_F(CleanerTest, progressCountsAdministratorItemsInTheWholeOnly) {
    const std::vector<CleanItem> items = {
        adminItem(stage.sandbox.file("system/log")),
        item("a", CleanCategory::logs),
        {.url = stage.home() / "gone"},
        {.url = stage.outside()},
    };
    static_cast<void>(clean(items));
    EXPECT_THAT(fractions, ElementsAre(0.25, 0.5, 0.75));
}

TEST_F(CleanerTest, theHistoryRemembersRealRunsThatRemovedSomething) {
    EXPECT_EQ(clean({}).freed, 0);
    static_cast<void>(clean({{.url = stage.outside()}}));
    static_cast<void>(clean({item("preview", CleanCategory::logs)}, {.dryRun = true}));
    EXPECT_EQ(History::load(history()).state, History::State::missing);

    const auto report =
        clean({item("a", CleanCategory::logs), item("\xff", CleanCategory::logs, Risk::review)});
    const auto entries = History::load(history()).entries;
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].action, "clean");
    EXPECT_EQ(entries[0].count, 2);
    EXPECT_EQ(entries[0].bytes, report.freed);
    EXPECT_THAT(entries[0].paths, ElementsAre(stage.home() / "a", (stage.home() / "\\xFF").native()));
}

TEST_F(CleanerTest, oneFailureDoesNotStopTheOthers) {
    stage.sandbox.text("home/.local", "no Trash can be made");
    const auto unlucky = item("unlucky", CleanCategory::installers);
    const auto lucky = item("lucky", CleanCategory::logs);
    const auto report = clean({unlucky, lucky});
    EXPECT_THAT(report.removed, ElementsAre(lucky));
    EXPECT_THAT(reasons(report), ElementsAre("The Trash cannot be used: Not a directory"));
    EXPECT_TRUE(fs::exists(unlucky.url));
}

TEST_F(CleanerTest, anEntryErasedFromTheTrashTakesItsNoteAlong) {
    static_cast<void>(clean({item("thing", CleanCategory::installers)}));
    const auto note = trash->contents().parent_path() / "info/thing.trashinfo";
    ASSERT_TRUE(fs::exists(note));
    const CleanItem entry{
        .url = trash->contents() / "thing", .category = CleanCategory::trash, .permanent = true};
    EXPECT_EQ(clean({entry}).removed.size(), 1U);
    EXPECT_FALSE(fs::exists(note));
}

TEST_F(CleanerTest, oneBatchHoldsAllThatRootRemovesAsItWasSeen) {
    auto tool = adminItem("snapshot");
    tool.rootTool = {RootTool::removeSnapRevision, {"core", "3"}};
    const auto log = adminItem(stage.sandbox.file("system/it's"));
    const auto busy = adminItem(stage.sandbox.file("system/busy"), 8);
    const auto link = adminItem(stage.sandbox.link("system/dangling", "nowhere"), 16);
    administrator.results = {StepResult::done(), StepResult::done(),
                             StepResult::failed("Changed since it was checked"),
                             StepResult::refused(RootRefusal::outside)};
    const auto report = clean({tool, adminItem(stage.outside() / "canary"), log, busy, link});
    ASSERT_EQ(administrator.batches.size(), 1U);
    const auto& steps = administrator.batches[0];
    ASSERT_EQ(steps.size(), 4U);
    EXPECT_EQ(std::get<ToolRun>(steps[0]), tool.rootTool);
    const auto& entry = std::get<EntryRemoval>(steps[1]);
    EXPECT_EQ(entry.path, log.url);
    EXPECT_TRUE(entry.seen.sameThing(*systemFolderAccess().identify(AT_FDCWD, log.url)));
    EXPECT_THAT(report.removed, ElementsAre(tool, log));
    EXPECT_EQ(report.freed, 200);
    EXPECT_EQ(report.trashed, 0);
    EXPECT_THAT(reasons(report),
                ElementsAre("outside the folders Tavrel cleans", "Changed since it was checked",
                            "Not below a folder that Tavrel cleans as administrator"));
}

TEST_F(CleanerTest, rootMayRemoveBelowTheSystemRootsOnlyAndOnlyWhatNobodyElseCanMove) {
    safety.extraRoots = {stage.outside()};
    const auto movable = adminItem(stage.sandbox.file("system/movable"));
    administrator.barred = movable.url;
    const auto report =
        clean({adminItem(stage.outside() / "canary"), adminItem(stage.sandbox.path("system")), movable});
    EXPECT_THAT(reasons(report), ElementsAre("outside the folders Tavrel cleans", "system folder",
                                             "Others than the administrator can change the folder it is in"));
    EXPECT_THAT(administrator.batches, IsEmpty()) << "nobody is asked for a password for nothing";
}

TEST_F(CleanerTest, aDismissedPromptSkipsWhatRootWouldHaveRemoved) {
    const auto ordinary = item("cache", CleanCategory::userCaches);
    const auto log = adminItem(stage.sandbox.file("system/log"));
    administrator.refusal = {Administrator::Refusal::Kind::dismissed, "Password prompt cancelled"};
    const auto report = clean({log, ordinary});
    EXPECT_THAT(report.removed, ElementsAre(ordinary));
    EXPECT_THAT(reasons(report), ElementsAre("Password prompt cancelled"));
    EXPECT_EQ(History::load(history()).entries.at(0).count, 1);
}

TEST_F(CleanerTest, emptyingTheTrashRemovesEveryEntryAndNothingElse) {
    static_cast<void>(
        clean({item(".hidden", CleanCategory::installers), item("b", CleanCategory::installers)}));
    stage.sandbox.file(trash->contents() / "folder/file", 10'000);
    stage.sandbox.link(trash->contents() / "link", stage.outside());
    const auto expected = testing::allocated(trash->contents() / "folder/file") +
                          testing::allocated(trash->contents() / ".hidden") * 2;
    EXPECT_EQ(Cleaner::emptyTrash(systemFolderAccess(), *trash), expected);
    EXPECT_TRUE(fs::is_empty(trash->contents()));
    EXPECT_TRUE(fs::is_empty(trash->contents().parent_path() / "info"));
    EXPECT_TRUE(fs::exists(stage.outside() / "canary"));
}

TEST_F(CleanerTest, aTrashThatIsALinkIsNotEmptied) {
    for (const auto layout : {Layout::flat, Layout::freedesktop}) {
        const auto linked = makeTrash(layout, systemFolderAccess(), stage.home());
        for (auto at = linked->contents(); at != stage.home(); at = at.parent_path()) {
            fs::remove_all(at);
            fs::create_directories(at.parent_path());
            const auto target = stage.sandbox.text("outside/Trash/files/canary", "alive").parent_path();
            fs::create_symlink(at.filename() == "Trash" ? target.parent_path() : target, at);
            EXPECT_EQ(Cleaner::emptyTrash(systemFolderAccess(), *linked), 0) << at;
            EXPECT_EQ(testing::contentOf(target / "canary"), "alive");
        }
        fs::remove(stage.home() / ".local");
    }
}

}  // namespace
}  // namespace tavrel
