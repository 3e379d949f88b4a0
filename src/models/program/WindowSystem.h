#pragma once

#include <cstdint>
#include <vector>

namespace tavrel {

/// What the launch logic asks of the system's windows. Everything happens on the main thread; nothing waits.
class WindowSystem {
  public:
    enum class WindowId : std::uintptr_t {};

    /// A main window is one that the user works in. Panels are what comes and goes beside it: the panel of
    /// the status item, menus, dialogs.
    enum class Kind { main, panel };

    /// Whether the program shows up among the running applications, or only by its status item.
    enum class ActivationPolicy { regular, accessory };

    struct Window {
        WindowId id = {};
        Kind kind = Kind::panel;
        bool visible = false;    ///< on the desktop, even where another window covers it
        bool minimised = false;  ///< a minimised window may still call itself visible
        bool exposed = false;    ///< some of it can be seen, as the system reports
    };

    virtual ~WindowSystem() = default;

    [[nodiscard]] virtual std::vector<Window> windows() const = 0;

    [[nodiscard]] virtual ActivationPolicy activationPolicy() const = 0;
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;

    /// Whether the user works with this program just now.
    [[nodiscard]] virtual bool isActive() const = 0;
    /// Brings the program before all others.
    virtual void activate() = 0;
    /// Takes the program off the desktop, so that the one behind it becomes active.
    virtual void hide() = 0;
    /// Undoes `hide`, and leaves active what is.
    virtual void unhideWithoutActivation() = 0;

    /// Shows the main window, made anew if there is none.
    virtual void openMainWindow() = 0;
    /// Nothing happens when the window is gone.
    virtual void closeWindow(WindowId id) = 0;

    /// Whether the user could get at the program once its last window is closed. A system with a Dock always
    /// answers true.
    [[nodiscard]] virtual bool canBeReopened() const = 0;
};

}  // namespace tavrel
