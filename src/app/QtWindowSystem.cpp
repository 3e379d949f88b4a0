#include "app/QtWindowSystem.h"

#include "models/program/AppDelegate.h"

#include <QEvent>
#include <QGuiApplication>
#include <utility>

namespace tavrel {

namespace {

using Window = WindowSystem::Window;
using WindowId = WindowSystem::WindowId;

WindowId idOf(const QWindow* window) {
    return WindowId{reinterpret_cast<std::uintptr_t>(window)};
}

/// Qt takes the right to the focus from the environment, and from nowhere else. Other systems than Wayland
/// have no use for it, and the environment is better left alone while threads run.
void keepActivationToken(const QString& token) {
    if (token.isEmpty() || !QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) return;
    qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

}  // namespace

QtWindowSystem::QtWindowSystem(Hooks hooks) : hooks_(std::move(hooks)) {
    QGuiApplication::setQuitOnLastWindowClosed(false);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (window != nullptr && delegate_ != nullptr) delegate_->windowDidBecomeKey();
    });
    // By then the window is closed, unless it has declined.
    connect(this, &QtWindowSystem::closeBegun, this, &QtWindowSystem::endIfUnreachable, Qt::QueuedConnection);
    connect(qGuiApp, &QCoreApplication::aboutToQuit, this, [this] { delegate_ = nullptr; });
}

void QtWindowSystem::setDelegate(AppDelegate& delegate) {
    delegate_ = &delegate;
    delegate_->windowVisibilityChanged();
}

void QtWindowSystem::reopen(const QString& activationToken) {
    keepActivationToken(activationToken);
    const bool shown = isMainWindowShown();
    if (delegate_ != nullptr && delegate_->applicationShouldHandleReopen(shown) && shown) activate();
}

void QtWindowSystem::endIfUnreachable() {
    const bool hasWindow = main_ != nullptr && main_->isVisible();
    if (hasWindow || delegate_ == nullptr) return;
    if (delegate_->applicationShouldTerminateAfterLastWindowClosed()) QCoreApplication::quit();
}

std::vector<Window> QtWindowSystem::windows() const {
    std::vector<Window> all;
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
        all.push_back({.id = idOf(window),
                       .kind = window == main_ ? Kind::main : Kind::panel,
                       .visible = window->isVisible(),
                       .minimised = window->windowStates().testFlag(Qt::WindowMinimized),
                       .exposed = window->isExposed()});
    }
    return all;
}

bool QtWindowSystem::isActive() const {
    return QGuiApplication::focusWindow() != nullptr;
}

void QtWindowSystem::activate() {
    if (main_ == nullptr) return;
    main_->raise();
    main_->requestActivate();
}

void QtWindowSystem::openMainWindow() {
    if (main_ == nullptr) watch(hooks_.makeMainWindow());
    if (main_ == nullptr) return;
    // Restored to what it was before: showNormal() would also undo a maximised window.
    const Qt::WindowStates states = main_->windowStates();
    if (states.testFlag(Qt::WindowMinimized)) main_->setWindowStates(states & ~Qt::WindowMinimized);
    main_->setVisible(true);
    activate();
}

void QtWindowSystem::closeWindow(WindowId id) {
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (idOf(window) == id) window->close();
    }
}

void QtWindowSystem::watch(QWindow* window) {
    main_ = window;
    if (window == nullptr) return;
    window->installEventFilter(this);
    connect(window, &QObject::destroyed, this, &QtWindowSystem::mainWindowCloses);
}

bool QtWindowSystem::eventFilter(QObject* watched, QEvent* event) {
    if (watched != main_ || delegate_ == nullptr) return false;
    switch (event->type()) {
        case QEvent::Close:
            mainWindowCloses();
            break;
        case QEvent::Expose:
        case QEvent::Hide:
        case QEvent::Show:
        case QEvent::WindowStateChange:
            delegate_->windowVisibilityChanged();
            break;
        default:
            break;
    }
    return false;
}

void QtWindowSystem::mainWindowCloses() {
    if (delegate_ == nullptr) return;
    delegate_->windowWillClose(Kind::main);
    Q_EMIT closeBegun({});
}

bool QtWindowSystem::isMainWindowShown() const {
    return main_ != nullptr && main_->isVisible() && !main_->windowStates().testFlag(Qt::WindowMinimized);
}

}  // namespace tavrel
