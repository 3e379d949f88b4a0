#include "core/Clock.h"

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
        const auto wait = std::chrono::ceil<std::chrono::milliseconds>(std::max(delay, Duration::zero()));
        QTimer::singleShot(wait, Qt::PreciseTimer, &context_, std::move(action));
    }

  private:
    QObject context_;  // what still waits goes with the clock
};

}  // namespace

std::unique_ptr<Clock> systemClock() {
    return std::make_unique<SystemClock>();
}

}  // namespace tavrel
