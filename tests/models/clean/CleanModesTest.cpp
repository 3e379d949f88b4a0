#include "cleaning/History.h"
#include "models/clean/CleanState.h"
#include "models/program/StateFixture.h"

#include <array>
#include <ostream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;
using testing::StateFixture;
using Texts = std::vector<std::string>;

/// Something that a mode finds, and where it goes when it is removed.
struct Thing {
    enum class Goes { away, toTheTrash };
    const char* path;
    bool safe;
    Goes goes;
};

struct Mode {
    CleanMode mode;
    const char* action;
    std::vector<Thing> things;
};

using enum Thing::Goes;

/// For the messages of failed tests.
void PrintTo(const Mode& mode, std::ostream* out) {
    *out << mode.action;
}

const std::array modes = {
    Mode{CleanMode::system,
         "clean",
         {{"~/Library/Caches/com.spotify.client", true, away},
          {"~/Library/Logs/Zoom", true, away},
          {"/Volumes/Stick/.Trashes/501/film", true, away},
          {"~/Library/Application Support/MobileSync/Backup/00008110-A", false, toTheTrash}}},
    Mode{CleanMode::ai,
         "ai",
         {{"~/.claude/debug", true, away},
          {"~/.codex/sessions/2025/11", true, toTheTrash},
          {"~/.claude/worktrees/attempt-3", false, toTheTrash}}},
    Mode{CleanMode::projects,
         "purge",
         {{"~/Developer/shop/node_modules", true, away}, {"~/Developer/today/target", false, toTheTrash}}},
    Mode{CleanMode::installers,
         "installers",
         {{"~/Downloads/Firefox 118.dmg", true, toTheTrash},
          {"/Applications/Install macOS Sonoma.app", true, toTheTrash},
          {"~/Downloads/Yesterday.pkg", false, toTheTrash}}},
};

void fill(const sample::SampleMac& mac) {
    constexpr int files = 12;
    constexpr std::int64_t size = 20'000;
    mac.folder("~/Library/Caches/com.spotify.client", files, size, 3);
    mac.folder("~/Library/Logs/Zoom", files, size, 12);
    mac.folder("~/Library/Application Support/MobileSync/Backup/00008110-A", files, size, 90);
    mac.folder("~/.claude/debug", files, size, 10);
    mac.folder("~/.codex/sessions/2025/11", files, size, 200);
    mac.folder("~/.claude/worktrees/attempt-3", files, size, 70);
    mac.folder("~/Developer/shop/node_modules", files, size, 120);
    testing::Sandbox::date(mac.file("~/Developer/shop/package.json", 20, 120).parent_path(),
                           testing::daysAgo(120));
    mac.folder("~/Developer/today/target", files, size);
    mac.file("~/Developer/today/Cargo.toml", 20);
    mac.bulk("~/Downloads/Firefox 118.dmg", 1'000'000, 50);
    mac.bulk("~/Downloads/Yesterday.pkg", 1'000'000, 1);
    mac.folder("/Applications/Install macOS Sonoma.app", files, size, 300);
    mac.folder("/Volumes/Stick/.Trashes/501/film", files, size, 4);
    mac.file("~/Documents/thesis.pages", 2'000, 300);
}

class CleanModesTest : public ::testing::TestWithParam<Mode> {
  protected:
    CleanModesTest() { fill(desk.mac); }

    [[nodiscard]] CleanListModel& list() { return *desk.state->clean()->list(GetParam().mode); }
    [[nodiscard]] Texts paths(bool safeOnly) const {
        Texts all;
        for (const Thing& thing : GetParam().things) {
            if (thing.safe || !safeOnly) all.push_back(desk.mac.at(thing.path).native());
        }
        return all;
    }
    static Texts ids(const std::vector<CleanItem>& items) {
        Texts all;
        for (const CleanItem& item : items) all.push_back(item.id());
        return all;
    }

    StateFixture desk;
};

INSTANTIATE_TEST_SUITE_P(, CleanModesTest, ::testing::ValuesIn(modes),
                         [](const auto& row) { return std::string(CleanModes::rawValue(row.param.mode)); });

TEST_P(CleanModesTest, FindsWhatIsItsOwnAndSelectsWhatIsSafe) {
    ASSERT_TRUE(desk.scan(list()));
    EXPECT_THAT(ids(list().items()), ::testing::UnorderedElementsAreArray(paths(false)));
    EXPECT_THAT(ids(list().selectedItems()), ::testing::UnorderedElementsAreArray(paths(true)));
}

TEST_P(CleanModesTest, RemovesAllThatIsSelectedAndRemembersTheRun) {
    ASSERT_TRUE(desk.scan(list()));
    for (const CleanItem& item : list().items()) {
        if (!list().isSelected(item)) list().toggle({item.id()});
    }
    const auto expected = list().items();
    const auto size = list().selectedSize();
    ASSERT_TRUE(desk.clean(list()));
    ASSERT_NE(list().report(), nullptr);
    EXPECT_THAT(list().report()->skipped, IsEmpty());
    EXPECT_EQ(list().report()->freed, size);
    EXPECT_THAT(list().items(), IsEmpty());
    for (const Thing& thing : GetParam().things) {
        const auto path = desk.mac.at(thing.path);
        EXPECT_FALSE(fs::exists(path)) << path;
        EXPECT_EQ(desk.isTrashed(path.filename()), thing.goes == toTheTrash) << path;
    }
    EXPECT_TRUE(fs::exists(desk.mac.at("~/Documents/thesis.pages")));
    EXPECT_TRUE(fs::is_directory(desk.mac.at("~/Downloads")));
    EXPECT_EQ(std::distance(fs::directory_iterator(desk.mac.root()), {}), 3);  // nothing is written beside

    const auto entries = History::load(desk.profile.places.history()).entries;
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].action, GetParam().action);
    EXPECT_EQ(entries[0].bytes, size);
    EXPECT_THAT(entries[0].paths, ::testing::UnorderedElementsAreArray(ids(expected)));
    desk.state->clean()->history()->load();
    EXPECT_EQ(desk.state->clean()->history()->count(), 1);
}

TEST_P(CleanModesTest, WithoutAUsableTrashNothingIsDeletedInstead) {
    desk.mac.file("~/.Trash", 10);
    desk.preferences.setAlwaysTrash(true);
    ASSERT_TRUE(desk.scan(list()));
    for (const CleanItem& item : list().selectedItems()) {
        if (item.permanent) list().toggle({item.id()});  // would go for good in any case
    }
    const auto selected = ids(list().selectedItems());
    ASSERT_FALSE(selected.empty());
    ASSERT_TRUE(desk.clean(list()));
    ASSERT_NE(list().report(), nullptr);
    EXPECT_THAT(list().report()->removed, IsEmpty());
    EXPECT_EQ(list().report()->skipped.size(), selected.size());
    EXPECT_EQ(ids(list().selectedItems()), selected);
    for (const std::string& path : paths(false)) EXPECT_TRUE(fs::exists(path)) << path;
    EXPECT_FALSE(fs::exists(desk.profile.places.history()));
}

}  // namespace
}  // namespace tavrel
