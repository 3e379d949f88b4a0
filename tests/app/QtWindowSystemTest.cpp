#include "app/QtWindowSystem.h"
#include "core/UserDefaults.h"
#include "models/program/AppDelegate.h"
#include "platform/linux/desktop/LinuxLaunchAtLogin.h"
#include "support/Sandbox.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QTest>
#include <QTimer>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using testing::Sandbox;
using Policy = WindowSystem::ActivationPolicy;
using Start = LinuxLaunchAtLogin::Start;

class StubbornWindow final : public QWindow {
  public:
    bool staysOpen = false;

  protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(!staysOpen); }
};

/// Real windows, and the real delegate behind them.
class QtWindowSystemTest : public ::testing::Test {
  protected:
    void launch(Start start) {
        login = std::make_unique<LinuxLaunchAtLogin>(sandbox.path("autostart"), "/usr/bin/tavrel", start);
        delegate = std::make_unique<AppDelegate>(
            windows, *clock, defaults, *login,
            AppDelegate::Hooks{.createStatusItem = [] {},
                               .setHidden = [this](bool value) { hidden.push_back(value); }});
        delegate->applicationWillFinishLaunching();
        windows.setDelegate(*delegate);
        if (!delegate->startsQuietly()) windows.openMainWindow();
        delegate->applicationDidFinishLaunching();
        QTest::qWait(20);
    }
    bool comesTo(Policy policy) {
        return QTest::qWaitFor([&] { return windows.activationPolicy() == policy; });
    }
    bool isLastTold(bool value) {
        return QTest::qWaitFor([&] { return !hidden.empty() && hidden.back() == value; });
    }
    /// Whether the event loop ends by itself once `action` has been called in it.
    static bool endsProgram(const std::function<void()>& action) {
        QTimer::singleShot(0, qApp, action);
        QTimer limit;
        QObject::connect(&limit, &QTimer::timeout, [] { QCoreApplication::exit(1); });
        limit.start(300);
        return QCoreApplication::exec() == 0;
    }

    Sandbox sandbox;
    std::unique_ptr<Clock> clock = systemClock();
    UserDefaults defaults{sandbox.path("s.plist")};
    bool reachable = true;
    int made = 0;
    std::unique_ptr<StubbornWindow> window;
    std::vector<bool> hidden;
    std::unique_ptr<LinuxLaunchAtLogin> login;
    QtWindowSystem windows{{.makeMainWindow =
                                [this] {
                                    ++made;
                                    window = std::make_unique<StubbornWindow>();
                                    window->resize(400, 300);
                                    window->show();
                                    return window.get();
                                },
                            .canBeReopened = [this] { return reachable; }}};
    std::unique_ptr<AppDelegate> delegate;
};

TEST_F(QtWindowSystemTest, TheWindowGoesAndComesBack) {
    launch(Start::byUser);
    EXPECT_TRUE(isLastTold(false)) << "seen once it is on the screen";
    window->close();
    EXPECT_TRUE(isLastTold(true));
    EXPECT_TRUE(comesTo(Policy::accessory));

    windows.reopen();
    EXPECT_TRUE(isLastTold(false));
    EXPECT_TRUE(comesTo(Policy::regular));
    EXPECT_EQ(made, 1) << "the same window";
}

TEST_F(QtWindowSystemTest, AQuietStartHasNoWindowUntilItIsAskedFor) {
    launch(Start::byLogin);
    EXPECT_TRUE(isLastTold(true)) << "nothing moves that nobody sees";
    EXPECT_EQ(made, 0);
    windows.openMainWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); })) << "too early to be the user's";
    QTest::qWait(1'300);
    windows.reopen(QStringLiteral("token"));
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(comesTo(Policy::regular));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN")) << "of use to Wayland alone";
}

TEST_F(QtWindowSystemTest, AMinimisedWindowIsRestoredAsItWas) {
    launch(Start::byUser);
    window->setWindowStates(Qt::WindowMaximized | Qt::WindowMinimized);
    EXPECT_TRUE(isLastTold(true));
    windows.reopen();
    EXPECT_TRUE(isLastTold(false));
    EXPECT_EQ(window->windowStates(), Qt::WindowMaximized);
}

TEST_F(QtWindowSystemTest, AWindowThatWasDestroyedIsMadeAnew) {
    launch(Start::byUser);
    window.reset();
    EXPECT_TRUE(isLastTold(true));
    windows.reopen();
    EXPECT_EQ(made, 2);
    EXPECT_TRUE(isLastTold(false));
}

TEST_F(QtWindowSystemTest, APanelIsNoMainWindow) {
    launch(Start::byLogin);
    QWindow panel;
    panel.setFlags(Qt::Popup);
    panel.show();
    panel.requestActivate();
    QTest::qWait(20);
    ASSERT_EQ(windows.windows().size(), 1U);
    EXPECT_TRUE(windows.windows().front().visible);
    EXPECT_EQ(windows.activationPolicy(), Policy::accessory);

    windows.reopen();
    EXPECT_EQ(made, 1) << "an open panel does not stand for the window";
    panel.close();
    QTest::qWait(20);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(QtWindowSystemTest, EndsOnlyWhenNobodyCouldReachIt) {
    launch(Start::byUser);
    EXPECT_FALSE(endsProgram([this] { window->close(); })) << "there is another way in";
}

TEST_F(QtWindowSystemTest, EndsWithTheWindowWhenThatIsTheOnlyWayIn) {
    launch(Start::byUser);
    reachable = false;
    EXPECT_FALSE(endsProgram([this] { windows.endIfUnreachable(); })) << "the window is there";
    windows.setDelegate(*delegate);
    window->staysOpen = true;
    EXPECT_FALSE(endsProgram([this] { window->close(); })) << "a window that declines";
    windows.setDelegate(*delegate);
    window->staysOpen = false;
    EXPECT_TRUE(endsProgram([this] { window->close(); }));
}

TEST_F(QtWindowSystemTest, EndsWhenTheLastWayInGoes) {
    launch(Start::byLogin);
    EXPECT_FALSE(endsProgram([this] { windows.endIfUnreachable(); }));
    windows.setDelegate(*delegate);
    reachable = false;
    EXPECT_TRUE(endsProgram([this] { windows.endIfUnreachable(); }));
}

}  // namespace
}  // namespace tavrel
