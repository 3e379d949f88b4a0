#pragma once

#include <QObject>
#include <QThreadPool>
#include <deque>
#include <functional>
#include <mutex>

namespace tavrel {

/// Threads that work for the one that made this object. What goes to them and comes back passes under a lock
/// of our own: a checker of data races, which does not see into Qt's pool, can follow it.
class Workers final : public QObject {
    Q_OBJECT

  public:
    using Tell = std::function<void()>;
    using Work = std::function<Tell()>;

    explicit Workers(int mostThreads);
    /// Waits for all that it took on; nobody is told any more.
    ~Workers() override;

    /// `work` is called on some thread, and what it returns, if anything, on the thread of this object.
    void run(Work work);

  Q_SIGNALS:
    void ended();

  private:
    void workOnce();
    void tellAll();

    QThreadPool pool_;
    std::mutex mutex_;  // guards what follows
    std::deque<Work> begun_;
    std::deque<Tell> ended_;
};

}  // namespace tavrel
