#include "models/clean/CleanState.h"
#include "models/program/LoginItem.h"
#include "models/program/StateFixture.h"

#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using testing::StateFixture;

class AppStateTest : public ::testing::Test {
  protected:
    [[nodiscard]] AppState& state() { return *desk.state; }

    StateFixture desk;
};

TEST_F(AppStateTest, ChoosingATabLeavesTheSettingsEvenForTheSameTab) {
    const QSignalSpy told(&state(), &AppState::tabChanged);
    for (const int tab : {0, 3, 3}) {
        state().setShowSettings(true);
        state().chooseTab(tab);
        EXPECT_EQ(state().tabIndex(), tab);
        EXPECT_FALSE(state().showSettings());
    }
    EXPECT_EQ(told.size(), 1);

    state().setShowSettings(true);
    for (const int none : {-1, 5}) state().chooseTab(none);
    EXPECT_EQ(state().tab(), AppTab::analyze);
    EXPECT_TRUE(state().showSettings());
}

TEST_F(AppStateTest, AModeThatIsNoneChangesNothing) {
    const QSignalSpy cleanTold(&state(), &AppState::cleanModeChanged);
    const QSignalSpy appsTold(&state(), &AppState::appsModeChanged);
    for (const int index : {2, 2, -1, 4}) state().chooseCleanMode(index);
    for (const int index : {1, 1, -1, 3}) state().chooseAppsMode(index);
    EXPECT_EQ(state().cleanMode(), CleanMode::projects);
    EXPECT_EQ(state().appsMode(), AppsMode::updates);
    EXPECT_EQ(cleanTold.size(), 1);
    EXPECT_EQ(appsTold.size(), 1);
}

TEST_F(AppStateTest, OnlyTheCleanTabIsBusyAndOnlyWhileAListWorks) {
    const QList<bool> idle(static_cast<qsizetype>(allAppTabs.size()), false);
    QList<bool> cleaning = idle;
    cleaning[static_cast<qsizetype>(AppTab::clean)] = true;
    desk.mac.folder("~/Library/Caches/com.spotify.client", 12, 20'000);
    std::vector<QList<bool>> seen = {state().busy()};
    QObject::connect(&state(), &AppState::busyChanged, [&] {
        if (seen.back() != state().busy()) seen.push_back(state().busy());
    });
    for (const CleanMode mode : CleanModes::allCases) ASSERT_TRUE(desk.scan(*state().clean()->list(mode)));
    ASSERT_TRUE(desk.clean(*state().clean()->junk()));
    EXPECT_EQ(seen, (std::vector{idle, cleaning, idle, cleaning, idle, cleaning, idle, cleaning, idle,
                                 cleaning, idle}));

    // Two lists at once: busy until the last one ends.
    state().clean()->junk()->scan();
    state().clean()->ai()->scan();
    ASSERT_TRUE(testing::waitUntil([&] { return !state().clean()->ai()->isWorking(); }, desk.clock));
    EXPECT_EQ(state().isBusy(AppTab::clean), state().clean()->junk()->isWorking());
}

TEST_F(AppStateTest, AScanGoesByThePreferencesOfItsBeginning) {
    const auto cache = desk.mac.folder("~/Library/Caches/com.spotify.client", 12, 20'000);
    ASSERT_TRUE(desk.scan(*state().clean()->junk()));
    EXPECT_EQ(state().clean()->junk()->itemCount(), 1);
    state().preferences()->addFolders(Preferences::PathList::ProtectedPaths, std::vector{cache});
    ASSERT_TRUE(desk.scan(*state().clean()->junk()));
    EXPECT_EQ(state().clean()->junk()->itemCount(), 0);

    const auto modules = desk.mac.folder("~/Developer/shop/node_modules", 12, 20'000, 20);
    testing::Sandbox::date(desk.mac.file("~/Developer/shop/package.json", 20), testing::daysAgo(20));
    ASSERT_TRUE(desk.scan(*state().clean()->projects()));
    EXPECT_EQ(state().clean()->projects()->selectedCount(), 0);
    state().preferences()->setStaleProjectDays(10);
    ASSERT_TRUE(desk.scan(*state().clean()->projects()));
    EXPECT_EQ(state().clean()->projects()->selectedCount(), 1);
}

TEST_F(AppStateTest, FullDiskAccessIsLookedAtAgainWhenAsked) {
    const QSignalSpy told(&state(), &AppState::hasFullDiskAccessChanged);
    EXPECT_TRUE(state().hasFullDiskAccess());
    EXPECT_TRUE(state().asksForFullDiskAccess());
    fs::remove_all(desk.mac.at("~/Library/Safari"));
    EXPECT_TRUE(state().hasFullDiskAccess());
    for (int i = 0; i < 2; ++i) state().readFullDiskAccess();
    EXPECT_FALSE(state().hasFullDiskAccess());
    EXPECT_EQ(told.size(), 1);
}

TEST_F(AppStateTest, TheSwitchForTheLoginStandsWhereTheSystemStands) {
    LoginItem& item = *state().loginItem();
    const QSignalSpy told(&item, &LoginItem::enabledChanged);
    item.setEnabled(true);
    EXPECT_TRUE(item.isEnabled());
    desk.login.works = false;
    item.setEnabled(false);
    EXPECT_TRUE(item.isEnabled());
    EXPECT_EQ(told.size(), 2);  // or the switch would stay where the user put it
}

TEST_F(AppStateTest, MayEndWhileItScansAndCleans) {
    const auto installer = desk.mac.bulk("~/Downloads/Old.dmg", 1'000'000, 50);
    desk.mac.folder("~/Library/Caches/com.spotify.client", 200, 20'000);
    ASSERT_TRUE(desk.scan(*state().clean()->installers()));
    state().clean()->installers()->clean();
    state().clean()->junk()->scan();
    desk.state.reset();
    ASSERT_TRUE(testing::waitUntil([&] { return !fs::exists(installer); }, desk.clock));
    EXPECT_TRUE(desk.isTrashed("Old.dmg"));
    testing::settle();
}

}  // namespace
}  // namespace tavrel
