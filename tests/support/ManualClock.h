#pragma once

#include "models/support/Clock.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

namespace tavrel::testing {

/// Time that stands still until a test moves it. Waiters come in the order of their deadlines, and of their
/// asking where those are equal.
class ManualClock final : public Clock {
  public:
    explicit ManualClock(Instant start = Instant(std::chrono::hours(24 * 365 * 50))) : now_(start) {}
    /// Lets whoever still waits go on, so that no coroutine stays half done.
    ~ManualClock() override { drain(); }

    [[nodiscard]] Instant now() const override { return now_ + set_; }
    [[nodiscard]] Instant uptime() const override { return now_; }

    void after(Duration delay, std::function<void()> action) override {
        waiters_.emplace(now_ + std::max(delay, Duration::zero()), std::move(action));
    }

    /// Moves time on, stopping at each deadline on the way; what a waiter asks for within the span happens
    /// too.
    void advance(Duration span) {
        const Instant end = now_ + span;
        while (!waiters_.empty() && waiters_.begin()->first <= end) wakeFirst();
        now_ = end;
    }
    void advance(double seconds) { advance(tavrel::seconds(seconds)); }

    /// Moves time on until nobody waits.
    void drain() {
        while (!waiters_.empty()) wakeFirst();
    }

    /// As a person sets the clock; what was asked for comes when it would have.
    void set(Duration by) { set_ += by; }

    [[nodiscard]] std::size_t waiting() const { return waiters_.size(); }

  private:
    void wakeFirst() {
        auto first = waiters_.extract(waiters_.begin());
        now_ = std::max(now_, first.key());
        first.mapped()();
    }

    Instant now_;
    Duration set_{};
    std::multimap<Instant, std::function<void()>> waiters_;
};

}  // namespace tavrel::testing
