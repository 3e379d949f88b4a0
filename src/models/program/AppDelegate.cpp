#include "models/program/AppDelegate.h"

#include "core/UserDefaults.h"
#include "platform/LaunchAtLogin.h"

#include <algorithm>
#include <utility>

namespace tavrel {

namespace {

using Kind = WindowSystem::Kind;
using Policy = WindowSystem::ActivationPolicy;
using Window = WindowSystem::Window;

/// Written by the updater right before it relaunches the program.
constexpr const char* relaunchKey = "relaunchQuietly";

constexpr Clock::Duration nextTurn = Clock::Duration::zero();

bool wasRelaunchedSince(const UserDefaults& defaults, Instant start) {
    const auto value = defaults.value(relaunchKey);
    const Instant* date = value ? std::get_if<Instant>(&*value) : nullptr;
    return date != nullptr && *date > start;
}

bool isVisibleMain(const Window& window) {
    return window.kind == Kind::main && window.visible;
}

}  // namespace

AppDelegate::AppDelegate(WindowSystem& windows, Clock& clock, UserDefaults& defaults, LaunchAtLogin& login,
                         Hooks hooks)
    : windows_(windows), clock_(clock), defaults_(defaults), login_(login), hooks_(std::move(hooks)) {}

void AppDelegate::applicationWillFinishLaunching() {
    startsQuietly_ =
        login_.launchedAsLoginItem() || wasRelaunchedSince(defaults_, clock_.now() - relaunchSpan);
    // Where the file cannot be written the date stays, and soon is too old to count.
    static_cast<void>(defaults_.remove(relaunchKey));
}

void AppDelegate::applicationDidFinishLaunching() {
    login_.enableOnFirstLaunch(defaults_);
    hooks_.createStatusItem();
    if (!startsQuietly_) return;
    windows_.setActivationPolicy(Policy::accessory);
    for (const Clock::Duration delay : quietPasses) later(delay, &AppDelegate::closeMainWindows);
}

void AppDelegate::windowWillClose(Kind kind) {
    // The window still counts as visible now.
    if (kind == Kind::main) later(nextTurn, &AppDelegate::updatePolicy);
    windowVisibilityChanged();
}

void AppDelegate::windowDidBecomeKey() {
    updatePolicy();
}

void AppDelegate::windowVisibilityChanged() {
    later(nextTurn, &AppDelegate::updateVisibility);
}

void AppDelegate::updatePolicy() {
    const Policy policy = windows_.activationPolicy();
    if (hasMainWindow()) {
        if (policy == Policy::regular) return;
        windows_.setActivationPolicy(Policy::regular);
        windows_.activate();
    } else if (policy != Policy::accessory) {
        if (windows_.isActive()) windows_.hide();
        later(policyDelay, &AppDelegate::becomeAccessory);
    }
}

void AppDelegate::updateVisibility() {
    const bool hidden = !mainWindowIsSeen();
    if (hidden == hidden_) return;
    hidden_ = hidden;
    hooks_.setHidden(hidden);
}

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows) {
    if (!hasVisibleWindows) windows_.openMainWindow();
    return true;
}

bool AppDelegate::applicationShouldTerminateAfterLastWindowClosed() const {
    return !windows_.canBeReopened();
}

void AppDelegate::later(Clock::Duration delay, void (AppDelegate::*step)()) {
    clock_.after(delay, [this, alive = std::weak_ptr(alive_), step] {
        if (!alive.expired()) (this->*step)();
    });
}

void AppDelegate::closeMainWindows() {
    for (const Window& window : windows_.windows()) {
        if (window.kind == Kind::main) windows_.closeWindow(window.id);
    }
}

void AppDelegate::becomeAccessory() {
    if (hasMainWindow()) return;
    windows_.setActivationPolicy(Policy::accessory);
    windows_.unhideWithoutActivation();
}

bool AppDelegate::hasMainWindow() const {
    const auto windows = windows_.windows();
    return std::any_of(windows.begin(), windows.end(), isVisibleMain);
}

bool AppDelegate::mainWindowIsSeen() const {
    const auto windows = windows_.windows();
    return std::any_of(windows.begin(), windows.end(), [](const Window& window) {
        return isVisibleMain(window) && !window.minimised && window.exposed;
    });
}

}  // namespace tavrel
