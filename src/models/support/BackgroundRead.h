#pragma once

#include <QFutureWatcher>
#include <QPromise>
#include <functional>
#include <system_error>
#include <thread>
#include <utility>

namespace tavrel {

/// A read that takes long, or hangs on a volume that is gone. It has a thread of its own that nobody waits
/// for, not even the end of the program: so `read` owns whatever it uses.
template <typename Result>
class BackgroundRead {
  public:
    /// `took` is called on this object's thread, with a value made of nothing where no thread was to be had.
    explicit BackgroundRead(std::function<void(const Result&)> took) {
        QObject::connect(&watcher_, &QFutureWatcher<Result>::finished, &watcher_,
                         [this, took = std::move(took)] {
                             const auto future = watcher_.future();
                             took(future.resultCount() > 0 ? future.result() : Result{});
                         });
    }

    /// Nothing happens while the last one goes on.
    void start(std::function<Result()> read) {
        if (watcher_.isRunning()) return;
        QPromise<Result> promise;
        watcher_.setFuture(promise.future());
        promise.start();
        try {
            std::thread([promise = std::move(promise), read = std::move(read)]() mutable {
                promise.addResult(read());
                promise.finish();
            }).detach();
        } catch (const std::system_error&) {  // the promise has gone, which ends its future
        }
    }

  private:
    QFutureWatcher<Result> watcher_;  // what comes in when it has gone is dropped
};

}  // namespace tavrel
