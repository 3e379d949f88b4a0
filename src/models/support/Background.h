#pragma once

#include <QObject>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <unordered_map>
#include <utility>

namespace tavrel {

/// Runs work on other threads and delivers the answers on the thread that made this object. That thread needs
/// an event loop, and it alone may use this object.
class Background final {
  public:
    using Duration = std::chrono::milliseconds;

    enum class Kind {
        mustFinish,      ///< a removal, a write: the destructor waits for all of it, begun or not
        mayBeAbandoned,  ///< a read, a scan, a measurement: nobody waits for it, not even the end of the
                         ///< program
    };

    /// For `limit`: as many at once as are asked for.
    static constexpr std::size_t noLimit = 0;
    /// Work that may be abandoned and takes longer than this no longer counts toward the limit: it may hang
    /// on a dead mount, and must not keep other work waiting.
    static constexpr Duration defaultPatience{5'000};

    /// At most `limit` pieces of work run at once; the others wait in the order in which they came.
    /// `patience` has a meaning for work that may be abandoned only.
    Background(Kind kind, std::size_t limit, Duration patience = defaultPatience);
    /// No answer is delivered any more. Work that may be abandoned is dropped where it has not begun, and
    /// left to its thread where it has.
    ~Background();
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    /// Returns at once. `work` is called without arguments on another thread; it owns all that it uses where
    /// it may be abandoned, and throws nothing. `done` is called with its result, once, later, on the thread
    /// of this object, in the order in which the results came; never when this object has gone. Where the
    /// system grants no thread, it is asked again every second.
    template <typename Work, typename Done>
    void run(Work work, Done done) {
        // Written by the worker and then read here; the lock of the crew passes in between.
        auto result = std::make_shared<std::optional<std::invoke_result_t<Work&>>>();
        start([result, work = std::move(work)]() mutable { result->emplace(work()); },
              [result, done = std::move(done)]() mutable { done(std::move(**result)); });
    }

    /// How the end of main() returns, after every object with work has gone: `return leave(status);`. While
    /// abandoned work runs, static objects must not be destroyed under it: then standard output is flushed
    /// and the process ends here with `status`, without exit handlers. Otherwise returns `status`.
    [[nodiscard]] static int leave(int status);

  private:
    struct Crew;

    void start(std::function<void()> work, std::function<void()> done);
    void hire();
    void deliver();

    std::shared_ptr<Crew> crew_;  // shared with the threads
    std::uint64_t lastId_ = 0;
    std::unordered_map<std::uint64_t, std::function<void()>> awaited_;  // never leave this thread
    QObject desk_;  // what is posted to it goes when it goes
};

}  // namespace tavrel
