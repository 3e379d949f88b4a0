#pragma once

#include "app/Program.h"
#include "sample/SampleMac.h"
#include "support/FakeMachine.h"
#include "support/ManualClock.h"
#include "support/Sandbox.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>
#include <functional>
#include <memory>
#include <string>

namespace tavrel::testing {

/// The whole program over a small sample Mac, in stepped time, with what a person can do to it: read, press,
/// type. A warning of the screens fails the test.
class AppDriver {
  public:
    AppDriver();
    ~AppDriver();
    AppDriver(const AppDriver&) = delete;
    AppDriver& operator=(const AppDriver&) = delete;

    /// Ends the program and starts it again over the same disk.
    void restart();

    [[nodiscard]] AppState& state() { return program_->state(); }
    [[nodiscard]] const sample::SampleMac& mac() const { return mac_; }
    /// The machine whose figures the program shows.
    [[nodiscard]] FakeMachine& machine() { return *machine_; }
    [[nodiscard]] QQuickWindow& window() { return *window_; }

    /// Every text that can be seen, in the order of the items.
    [[nodiscard]] QStringList texts();
    /// Whether a text that can be seen is `text`.
    [[nodiscard]] bool reads(const QString& text) { return texts().contains(text); }
    /// The first text that can be seen and holds `part`; empty when there is none.
    [[nodiscard]] QString textWith(const QString& part);
    /// Every item that can be seen and of which `wanted` is true.
    [[nodiscard]] std::vector<QQuickItem*> items(const std::function<bool(QQuickItem&)>& wanted);

    /// Clicks the button with that text; fails the test when no button that can be pressed has it.
    void press(const QString& text);
    /// Types on the keyboard, at whatever has the focus.
    void type(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Lets time pass until `reached`; fails the test when that takes more than a minute of the program's
    /// time.
    void until(const std::string& what, const std::function<bool()>& reached);
    /// Lets what has begun come to rest.
    void settle();

  private:
    void start();

    Sandbox disk_;
    sample::SampleMac mac_;
    std::shared_ptr<FakeMachine> machine_ = std::make_shared<FakeMachine>();
    ManualClock* clock_ = nullptr;  // owned by the program
    std::unique_ptr<Program> program_;
    QQuickWindow* window_ = nullptr;
};

}  // namespace tavrel::testing
