#include "models/support/Workers.h"

#include <utility>

namespace tavrel {

Workers::Workers(int mostThreads) {
    pool_.setMaxThreadCount(mostThreads);
    connect(this, &Workers::ended, this, &Workers::tellAll, Qt::QueuedConnection);
}

Workers::~Workers() {
    pool_.waitForDone();
    const std::scoped_lock lock(mutex_);
    ended_.clear();
}

void Workers::run(Work work) {
    {
        const std::scoped_lock lock(mutex_);
        begun_.push_back(std::move(work));
    }
    pool_.start([this] { workOnce(); });
}

void Workers::workOnce() {
    Work work;
    {
        const std::scoped_lock lock(mutex_);
        work = std::move(begun_.front());
        begun_.pop_front();
    }
    Tell tell = work();
    if (!tell) return;
    {
        const std::scoped_lock lock(mutex_);
        ended_.push_back(std::move(tell));
    }
    Q_EMIT ended();
}

void Workers::tellAll() {
    std::deque<Tell> ended;
    {
        const std::scoped_lock lock(mutex_);
        ended.swap(ended_);
    }
    for (const Tell& tell : ended) tell();
}

}  // namespace tavrel
