#pragma once

#include <QQmlApplicationEngine>
#include <memory>

class QQuickWindow;

namespace tavrel {

class AppState;

/// Makes the main window from its screens, and keeps the engine that they run on.
class MainWindow {
  public:
    explicit MainWindow(AppState& state);
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// A window, shown: the same one again once it is made. nullptr when the screens cannot be loaded, which
    /// the engine then says on standard error.
    [[nodiscard]] QQuickWindow* show();

    [[nodiscard]] QQmlEngine& engine() { return engine_; }

  private:
    AppState& state_;
    QQmlApplicationEngine engine_;
};

}  // namespace tavrel
