#pragma once

#include "models/program/WindowSystem.h"
#include "models/support/Clock.h"

#include <functional>
#include <memory>
#include <variant>

namespace tavrel {

class LaunchAtLogin;
class UserDefaults;

/// Decides how the program shows itself: with a main window as a regular application, or with its status item
/// alone. The program's entry point calls it when it starts, the window system when something happens.
class AppDelegate {
  public:
    struct Hooks {
        /// Makes the status item unless there is one.
        std::function<void()> createStatusItem;
        /// Called with whether the main window is invisible when that changes; initially false.
        std::function<void(bool)> setHidden;
    };

    /// A program that an update has relaunched within this span starts quietly.
    static constexpr Clock::Duration relaunchSpan = std::chrono::seconds(300);
    /// When a quiet start closes what has opened by itself meanwhile.
    static constexpr Clock::Duration quietPasses[] = {std::chrono::milliseconds(400),
                                                      std::chrono::milliseconds(1200)};
    /// How long a closed main window may take to come back before the program becomes an accessory.
    static constexpr Clock::Duration policyDelay = std::chrono::milliseconds(350);

    /// What is passed by reference outlives the delegate.
    AppDelegate(WindowSystem& windows, Clock& clock, UserDefaults& defaults, LaunchAtLogin& login,
                Hooks hooks);

    /// Whether this start opens no window. Known once `applicationWillFinishLaunching` has been called.
    [[nodiscard]] bool startsQuietly() const { return startsQuietly_; }

    /// Before any window: settles `startsQuietly`.
    void applicationWillFinishLaunching();
    void applicationDidFinishLaunching();

    void windowWillClose(WindowSystem::Kind kind);
    void windowDidBecomeKey();
    /// A window was covered or uncovered, minimised or restored, shown or hidden.
    void windowVisibilityChanged();

    /// Makes the program regular while a main window is visible, and an accessory soon after there is none.
    void updatePolicy();
    /// Calls `setHidden` if the state has changed.
    void updateVisibility();

    /// The program was opened again while it runs. Whether the system may go on and bring it forward.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);
    /// False where the program lives on by its status item.
    [[nodiscard]] bool applicationShouldTerminateAfterLastWindowClosed() const;

  private:
    /// Calls `step` from the event loop, unless the delegate is gone by then.
    void later(Clock::Duration delay, void (AppDelegate::*step)());
    void closeMainWindows();
    void becomeAccessory();
    [[nodiscard]] bool hasMainWindow() const;
    [[nodiscard]] bool mainWindowIsSeen() const;

    WindowSystem& windows_;
    Clock& clock_;
    UserDefaults& defaults_;
    LaunchAtLogin& login_;
    Hooks hooks_;
    bool startsQuietly_ = false;
    bool hidden_ = false;
    std::shared_ptr<std::monostate> alive_ = std::make_shared<std::monostate>();
};

}  // namespace tavrel
