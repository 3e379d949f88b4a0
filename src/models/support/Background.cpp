#include "models/support/Background.h"

#include <QMetaObject>
#include <QTimer>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <iterator>
#include <list>
#include <mutex>
#include <system_error>
#include <thread>

namespace tavrel {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::chrono::seconds untilNextAttempt{1};

/// Threads of work that may be abandoned. Has no destructor, so the last of them may count after main().
std::atomic<int> abandonable = 0;

}  // namespace

/// What the threads share with the object that they work for. It lives as long as any of them, and has a lock
/// of its own: ThreadSanitizer does not see into Qt's.
struct Background::Crew {
    struct Job {
        std::uint64_t id = 0;
        std::function<void()> work;
    };

    Crew(Background* of, Kind itsKind, std::size_t itsLimit, Duration itsPatience)
        : kind(itsKind), limit(itsLimit), patience(itsPatience), asker(of) {}

    [[nodiscard]] bool awaitTurn(std::unique_lock<std::mutex>& lock);
    void work(std::unique_lock<std::mutex>& lock);

    const Kind kind;
    const std::size_t limit;
    const Duration patience;

    std::mutex mutex;  // guards what follows
    std::condition_variable changed;
    Background* asker;  // nullptr once it has gone
    std::deque<Job> queue;
    std::list<SteadyClock::time_point> running;  // when each piece of work began, the oldest first
    bool hasNext = false;                        // a thread waits for its turn; one is enough
    std::deque<std::uint64_t> ended;

    static void hire(const std::shared_ptr<Crew>& crew);
    std::weak_ptr<Crew> self;
};

/// Waits until another piece of work may begin. False when none is left.
bool Background::Crew::awaitTurn(std::unique_lock<std::mutex>& lock) {
    while (!queue.empty()) {
        if (limit == noLimit || running.size() < limit) return true;
        if (kind == Kind::mustFinish) {
            changed.wait(lock);
            continue;
        }
        // All but the last `limit` count no more. The next one goes on when the oldest of those does not,
        // either.
        const auto due =
            *std::next(running.begin(), static_cast<std::ptrdiff_t>(running.size() - limit)) + patience;
        if (SteadyClock::now() >= due) return true;
        changed.wait_until(lock, due);
    }
    return false;
}

/// Works until nothing is left, or until another thread is there to go on.
void Background::Crew::work(std::unique_lock<std::mutex>& lock) {
    while (awaitTurn(lock)) {
        Job job = std::move(queue.front());
        queue.pop_front();
        const auto place = running.insert(running.end(), SteadyClock::now());
        hasNext = false;
        if (!queue.empty()) hire(self.lock());
        lock.unlock();
        job.work();
        job.work = nullptr;  // what it held goes before its answer is there
        lock.lock();
        running.erase(place);
        if (asker != nullptr) {
            ended.push_back(job.id);
            QMetaObject::invokeMethod(
                &asker->desk_, [to = asker] { to->deliver(); }, Qt::QueuedConnection);
        }
        changed.notify_all();
        if (std::exchange(hasNext, true)) return;
    }
    hasNext = false;
}

/// Under the lock. Adds a thread unless one waits already.
void Background::Crew::hire(const std::shared_ptr<Crew>& crew) {
    if (std::exchange(crew->hasNext, true)) return;
    const bool counts = crew->kind == Kind::mayBeAbandoned;
    if (counts) ++abandonable;
    try {
        std::thread([held = std::shared_ptr(crew), counts]() mutable {
            {
                std::unique_lock lock(held->mutex);
                held->work(lock);
            }
            held.reset();
            if (counts) --abandonable;
        }).detach();
    } catch (const std::system_error&) {
        crew->hasNext = false;
        if (counts) --abandonable;
    }
}

Background::Background(Kind kind, std::size_t limit, Duration patience)
    : crew_(std::make_shared<Crew>(this, kind, limit, patience)) {
    crew_->self = crew_;
}

Background::~Background() {
    std::deque<Crew::Job> dropped;  // destroyed without the lock
    std::unique_lock lock(crew_->mutex);
    crew_->asker = nullptr;
    if (crew_->kind == Kind::mayBeAbandoned) {
        dropped.swap(crew_->queue);
        crew_->changed.notify_all();
        return;
    }
    if (!std::exchange(crew_->hasNext, true)) crew_->work(lock);  // no thread was granted for what is left
    crew_->changed.wait(lock, [this] { return crew_->queue.empty() && crew_->running.empty(); });
}

void Background::start(std::function<void()> work, std::function<void()> done) {
    const std::uint64_t id = ++lastId_;
    awaited_.emplace(id, std::move(done));
    {
        const std::scoped_lock lock(crew_->mutex);
        crew_->queue.push_back({id, std::move(work)});
    }
    hire();
}

void Background::hire() {
    const std::scoped_lock lock(crew_->mutex);
    if (crew_->queue.empty()) return;
    Crew::hire(crew_);
    if (!crew_->hasNext) QTimer::singleShot(untilNextAttempt, &desk_, [this] { hire(); });
}

/// One answer for each event: it stays behind what its worker posted before. It may destroy this object.
void Background::deliver() {
    std::uint64_t id = 0;
    {
        const std::scoped_lock lock(crew_->mutex);
        id = crew_->ended.front();
        crew_->ended.pop_front();
    }
    const auto answer = awaited_.extract(id);
    answer.mapped()();
}

int Background::leave(int status) {
    if (abandonable == 0) return status;
    std::fflush(stdout);
    std::_Exit(status);
}

}  // namespace tavrel
