#include "models/support/Clock.h"

#include <QObject>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace tavrel {
namespace {

class SystemClock final : public Clock {
  public:
    [[nodiscard]] Instant now() const override { return std::chrono::system_clock::now(); }
    [[nodiscard]] Instant uptime() const override {
        return Instant(std::chrono::steady_clock::now().time_since_epoch());
    }

    void after(Duration delay, std::function<void()> action) override {
        call(delay, Qt::PreciseTimer, std::move(action));
    }
    void afterAbout(Duration delay, std::function<void()> action) override {
        call(delay, Qt::CoarseTimer, std::move(action));
    }

  private:
    void call(Duration delay, Qt::TimerType type, std::function<void()> action) {
        const auto wait = std::chrono::ceil<std::chrono::milliseconds>(std::max(delay, Duration::zero()));
        QTimer::singleShot(wait, type, &context_, std::move(action));
    }

    QObject context_;  // what still waits goes with the clock
};

}  // namespace

std::unique_ptr<Clock> systemClock() {
    return std::make_unique<SystemClock>();
}

}  // namespace tavrel
