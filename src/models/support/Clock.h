#pragma once

#include "core/Instant.h"

#include <chrono>
#include <coroutine>
#include <functional>
#include <memory>
#include <utility>

namespace tavrel {

/// Where models get their time from. Everything happens on the thread that made the clock.
class Clock {
  public:
    using Duration = std::chrono::nanoseconds;

    /// The awaitable of `co_await clock.sleep(...)`. The clock must outlive it.
    class Sleep {
      public:
        Sleep(Clock& clock, Duration duration) : clock_(clock), duration_(duration) {}
        [[nodiscard]] static bool await_ready() noexcept { return false; }
        void await_suspend(std::coroutine_handle<> waiter) { clock_.after(duration_, waiter); }
        static void await_resume() noexcept {}

      private:
        Clock& clock_;
        Duration duration_;
    };

    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;
    /// A clock that only goes forward, whatever is set: for rates and spans alone.
    [[nodiscard]] virtual Instant uptime() const = 0;

    /// Calls `action` once, `delay` from now and never before this function has returned; what is due at one
    /// moment is called in the order it was asked for. A delay that is not positive means the next turn of
    /// the event loop.
    virtual void after(Duration delay, std::function<void()> action) = 0;

    /// The same a twentieth of the delay early or late, so that the system can put its wake-ups together: for
    /// what goes on all day and nobody sees move.
    virtual void afterAbout(Duration delay, std::function<void()> action) { after(delay, std::move(action)); }

    [[nodiscard]] Sleep sleep(Duration duration) { return {*this, duration}; }
};

/// Seconds as formulas use them.
[[nodiscard]] inline Clock::Duration seconds(double value) {
    return std::chrono::duration_cast<Clock::Duration>(std::chrono::duration<double>(value));
}

/// Real time, by the timers of the event loop.
[[nodiscard]] std::unique_ptr<Clock> systemClock();

}  // namespace tavrel
