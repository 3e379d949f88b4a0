#pragma once

namespace tavrel {

class UserDefaults;

/// Whether the program starts when the user logs in.
class LaunchAtLogin {
  public:
    virtual ~LaunchAtLogin() = default;

    /// Whether this very process was started by the login. Asked once, early.
    [[nodiscard]] virtual bool launchedAsLoginItem() const = 0;
    [[nodiscard]] virtual bool isEnabled() const = 0;
    /// Registers or unregisters; whether that worked.
    virtual bool set(bool on) = 0;

    /// The first launch opts the user in, once: a later switch-off stays off.
    void enableOnFirstLaunch(UserDefaults& defaults);
};

}  // namespace tavrel
