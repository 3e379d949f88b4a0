#include "core/UserDefaults.h"
#include "models/program/AppDelegate.h"
#include "support/FakeLogin.h"
#include "support/ManualClock.h"
#include "support/Sandbox.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using testing::FakeLogin;
using ::testing::IsEmpty;
using testing::ManualClock;
using testing::Sandbox;
using Kind = WindowSystem::Kind;
using Policy = WindowSystem::ActivationPolicy;
using Words = std::vector<std::string>;

constexpr auto mainId = WindowSystem::WindowId{1};
constexpr auto panelId = WindowSystem::WindowId{2};

/// A desktop with room for one main window and one panel, which notes what is done to the application.
class Desktop final : public WindowSystem {
  public:
    [[nodiscard]] std::vector<Window> windows() const override { return {panel, main}; }
    [[nodiscard]] ActivationPolicy activationPolicy() const override { return policy; }
    void setActivationPolicy(ActivationPolicy value) override {
        policy = value;
        done.emplace_back(value == Policy::regular ? "regular" : "accessory");
    }
    [[nodiscard]] bool isActive() const override { return active; }
    void activate() override { done.emplace_back("activate"); }
    void hide() override { done.emplace_back("hide"); }
    void unhideWithoutActivation() override { done.emplace_back("unhide"); }
    void openMainWindow() override {
        done.emplace_back("open");
        main.visible = true;
    }
    void closeWindow(WindowId id) override { (id == mainId ? main : panel).visible = false; }
    [[nodiscard]] bool canBeReopened() const override { return reachable; }

    Window main = {.id = mainId, .kind = Kind::main, .exposed = true};
    Window panel = {.id = panelId, .kind = Kind::panel, .exposed = true};
    Policy policy = Policy::regular;
    bool active = true;
    bool reachable = true;
    Words done;
};

class AppDelegateTest : public ::testing::Test {
  protected:
    void launch() {
        delegate.applicationWillFinishLaunching();
        delegate.applicationDidFinishLaunching();
    }
    void launchQuietly() {
        login.byLogin = true;
        launch();
        desktop.done.clear();
    }
    void closeMain() {
        delegate.windowWillClose(Kind::main);
        desktop.main.visible = false;
    }

    Sandbox sandbox;
    ManualClock clock;
    UserDefaults defaults{sandbox.path("s.plist")};
    Desktop desktop;
    FakeLogin login;
    int statusItems = 0;
    std::vector<bool> hidden;
    AppDelegate delegate{desktop,
                         clock,
                         defaults,
                         login,
                         {.createStatusItem = [this] { ++statusItems; },
                          .setHidden = [this](bool value) { hidden.push_back(value); }}};
};

TEST_F(AppDelegateTest, ALoginOrARecentRelaunchStartsQuietly) {
    struct Case {
        const char* name;
        bool byLogin;
        std::optional<UserDefaults::Value> relaunch;
        bool quiet;
    };
    const Instant now = clock.now();
    const Case cases[] = {
        {"by the user", false, {}, false},
        {"by the login", true, {}, true},
        {"just within the span", false, now - std::chrono::seconds(299), true},
        {"just out of it", false, now - std::chrono::seconds(300), false},
        {"long ago", true, now - std::chrono::hours(9), true},
        {"a clock set back since", false, now + std::chrono::hours(1), true},
        {"a text", false, "2026-01-01T00:00:00Z", false},
        {"a truth", false, true, false},
        {"a number", false, std::int64_t{1} << 40, false},
        {"before any clock", false, Instant(-std::chrono::hours(24 * 365 * 10)), false},
    };
    for (const Case& start : cases) {
        if (start.relaunch) {
            ASSERT_EQ(defaults.set("relaunchQuietly", *start.relaunch), std::error_code()) << start.name;
        }
        login.byLogin = start.byLogin;
        delegate.applicationWillFinishLaunching();
        EXPECT_EQ(delegate.startsQuietly(), start.quiet) << start.name;
        EXPECT_FALSE(UserDefaults(sandbox.path("s.plist")).holds("relaunchQuietly")) << start.name;
    }
}

TEST_F(AppDelegateTest, ANormalStartLeavesTheWindowAndOptsInOnce) {
    desktop.main.visible = true;
    launch();
    clock.advance(2.0);
    EXPECT_TRUE(desktop.main.visible);
    EXPECT_THAT(desktop.done, IsEmpty());
    EXPECT_EQ(statusItems, 1);
    EXPECT_EQ(login.registrations, 1);

    launch();
    EXPECT_EQ(login.registrations, 1);
}

TEST_F(AppDelegateTest, AQuietStartEndsWithoutAWindowWheneverOneOpens) {
    login.byLogin = true;
    desktop.panel.visible = true;
    launch();
    EXPECT_EQ(desktop.policy, Policy::accessory);
    EXPECT_EQ(statusItems, 1);

    desktop.main.visible = true;
    clock.advance(0.39);
    EXPECT_TRUE(desktop.main.visible);
    clock.advance(0.01);
    EXPECT_FALSE(desktop.main.visible);

    desktop.main.visible = true;
    clock.advance(0.79);
    EXPECT_TRUE(desktop.main.visible);
    clock.advance(0.01);
    EXPECT_FALSE(desktop.main.visible);
    EXPECT_TRUE(desktop.panel.visible);

    desktop.main.visible = true;
    clock.drain();
    EXPECT_TRUE(desktop.main.visible) << "what the user opens later stays";
}

TEST_F(AppDelegateTest, ClosingTheMainWindowMakesAnAccessory) {
    for (const bool active : {true, false}) {
        desktop.policy = Policy::regular;
        desktop.main.visible = true;
        desktop.active = active;
        desktop.done.clear();

        closeMain();
        EXPECT_THAT(desktop.done, IsEmpty()) << "the window is still about to close";
        clock.advance(0.349);
        const Words before = active ? Words{"hide"} : Words{};
        EXPECT_EQ(desktop.done, before);
        clock.advance(0.001);
        Words after = before;
        after.insert(after.end(), {"accessory", "unhide"});
        EXPECT_EQ(desktop.done, after);
    }
}

TEST_F(AppDelegateTest, AWindowThatComesBackInTimeKeepsTheProgramRegular) {
    desktop.main.visible = true;
    closeMain();
    clock.advance(0.3);
    desktop.main.visible = true;
    delegate.windowDidBecomeKey();
    clock.drain();
    EXPECT_THAT(desktop.done, ElementsAre("hide"));
    EXPECT_EQ(desktop.policy, Policy::regular);
}

TEST_F(AppDelegateTest, OnlyAMainWindowChangesThePolicy) {
    desktop.panel.visible = true;
    delegate.windowWillClose(Kind::panel);
    clock.drain();
    EXPECT_THAT(desktop.done, IsEmpty()) << "a regular program whose panel closes";

    launchQuietly();
    delegate.windowDidBecomeKey();
    closeMain();
    clock.drain();
    EXPECT_THAT(desktop.done, IsEmpty()) << "an accessory whose panel becomes key";

    desktop.main.visible = true;
    delegate.windowDidBecomeKey();
    delegate.windowDidBecomeKey();
    EXPECT_THAT(desktop.done, ElementsAre("regular", "activate"));
}

TEST_F(AppDelegateTest, TellsOnlyChangesOfWhetherTheMainWindowIsSeen) {
    struct Case {
        const char* name;
        bool visible, minimised, exposed;
        std::vector<bool> told;
    };
    const Case cases[] = {
        {"shown at first", true, false, true, {}},
        {"covered", true, false, false, {true}},
        {"covered and minimised", true, true, false, {}},
        {"minimised", true, true, true, {}},
        {"restored", true, false, true, {false}},
        {"moved in front of another", true, false, true, {}},
        {"closed", false, false, true, {true}},
    };
    desktop.panel.visible = true;
    for (const Case& step : cases) {
        desktop.main.visible = step.visible;
        desktop.main.minimised = step.minimised;
        desktop.main.exposed = step.exposed;
        delegate.windowVisibilityChanged();
        EXPECT_THAT(hidden, IsEmpty()) << step.name;
        clock.advance(0.0);
        EXPECT_EQ(hidden, step.told) << step.name;
        hidden.clear();
    }
}

TEST_F(AppDelegateTest, OpeningTheProgramAgainBringsTheWindowBack) {
    launchQuietly();
    clock.drain();
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false));
    delegate.windowDidBecomeKey();
    EXPECT_THAT(desktop.done, ElementsAre("open", "regular", "activate"));

    EXPECT_TRUE(delegate.applicationShouldHandleReopen(true));
    EXPECT_EQ(desktop.done.size(), 3U);
}

TEST_F(AppDelegateTest, EndsWithItsLastWindowOnlyWhereNothingCouldBringItBack) {
    EXPECT_FALSE(delegate.applicationShouldTerminateAfterLastWindowClosed());
    desktop.reachable = false;
    EXPECT_TRUE(delegate.applicationShouldTerminateAfterLastWindowClosed());
}

TEST_F(AppDelegateTest, WhatWasDueAfterTheEndDoesNotHappen) {
    {
        AppDelegate brief(desktop, clock, defaults, login, {.createStatusItem = [] {}, .setHidden = {}});
        brief.windowWillClose(Kind::main);
        brief.windowVisibilityChanged();
    }
    clock.drain();
    EXPECT_THAT(desktop.done, IsEmpty());
}

}  // namespace
}  // namespace tavrel
