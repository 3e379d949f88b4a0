#pragma once

#include "models/program/WindowSystem.h"

#include <QObject>
#include <QPointer>
#include <QWindow>
#include <functional>

namespace tavrel {

class AppDelegate;

/// The program's windows as Qt has them: one main window, and every other top-level window a panel. The
/// desktops served here have no Dock; an accessory is a program without a main window, which is all that the
/// policy comes to. Lives as long as the application object.
class QtWindowSystem final : public QObject, public WindowSystem {
    Q_OBJECT

  public:
    struct Hooks {
        /// Makes and shows the main window, which it or its engine owns. Called when there is none; null
        /// means that it could not be made.
        std::function<QWindow*()> makeMainWindow;
        /// Whether anything could bring the program back without a window: a tray host, the name on the bus.
        std::function<bool()> canBeReopened;
    };

    explicit QtWindowSystem(Hooks hooks);

    /// Sets the receiver of the main window's events and reports the current state to it before returning.
    /// `delegate` must outlive the event loop.
    void setDelegate(AppDelegate& delegate);

    /// The program was opened again: shows the main window, or brings it forward. The token is what a
    /// Wayland desktop passes on for that; it may be empty.
    void reopen(const QString& activationToken = {});

    /// Ends the program when there is no main window and nothing could bring one back. To be called when
    /// `canBeReopened` may have turned false.
    void endIfUnreachable();

    [[nodiscard]] std::vector<Window> windows() const override;
    [[nodiscard]] ActivationPolicy activationPolicy() const override { return policy_; }
    void setActivationPolicy(ActivationPolicy policy) override { policy_ = policy; }
    [[nodiscard]] bool isActive() const override;
    void activate() override;
    /// Window managers hand the focus on by themselves when a window closes, and a panel that is open
    /// dismisses itself: there is nothing to take off the desktop, and nothing to bring back.
    void hide() override {}
    void unhideWithoutActivation() override {}
    void openMainWindow() override;
    void closeWindow(WindowId id) override;
    [[nodiscard]] bool canBeReopened() const override { return hooks_.canBeReopened(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    void closeBegun(QPrivateSignal);

  private:
    void watch(QWindow* window);
    void mainWindowCloses();
    [[nodiscard]] bool isMainWindowShown() const;

    Hooks hooks_;
    QPointer<QWindow> main_;
    AppDelegate* delegate_ = nullptr;
    ActivationPolicy policy_ = ActivationPolicy::regular;
};

}  // namespace tavrel
