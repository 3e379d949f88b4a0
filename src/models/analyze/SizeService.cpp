#include "models/analyze/SizeService.h"

#include <algorithm>
#include <utility>

namespace tavrel {

/// One measurement: waiting for a permit, or with one.
struct SizeService::Task {
    std::string path;
    std::vector<std::weak_ptr<Wait>> waits;  // in the order of their coming; some may have been given up
    std::size_t waiters = 0;                 // those that were not
    std::stop_source stop;
    DiskWork::Progress progress = std::make_shared<std::atomic<std::uint64_t>>(0);
    std::optional<std::uint64_t> progressSeen;
    std::size_t forgettings = 0;  // those before it
    Tasks* holder = nullptr;      // the list that it stands in
    Tasks::iterator place;
};

std::size_t SizeService::parallelWalks(unsigned processors) {
    constexpr unsigned fewest = 4;
    constexpr unsigned spared = 2;
    return std::max(processors, fewest + spared) - spared;
}

SizeService::Wait::Wait(SizeService& service, std::weak_ptr<Task> task, Answer answer, Stalled stalled)
    : service_(service), task_(std::move(task)), answer_(std::move(answer)), stalled_(std::move(stalled)) {}

SizeService::Wait::~Wait() {
    const std::shared_ptr<Task> task = task_.lock();
    if (task && --task->waiters == 0) service_.abandon(task);
}

SizeService::SizeService(DiskWork& work, Clock& clock, std::size_t maxParallel)
    : work_(work), clock_(clock), maxParallel_(maxParallel) {}

SizeService::~SizeService() {
    for (const Tasks* tasks : {&running_, &stalled_}) {
        for (const auto& task : *tasks) task->stop.request_stop();
    }
}

std::shared_ptr<SizeService::Wait> SizeService::info(const std::string& of, Answer answer, Stalled stalled) {
    if (const auto known = cache_.find(of)) {
        answer(*known);
        return nullptr;
    }
    std::shared_ptr<Task>& task = inflight_[of];
    const bool isNew = task == nullptr;
    if (isNew) {
        task = std::make_shared<Task>();
        task->path = of;
        task->forgettings = forgettings_;
    }
    auto wait = std::make_shared<Wait>(*this, task, std::move(answer), std::move(stalled));
    task->waits.push_back(wait);
    ++task->waiters;
    if (isNew) begin(task);
    return wait;
}

SizeCache::Evicted SizeService::invalidate(std::span<const std::string_view> paths) {
    ++forgettings_;
    return cache_.forget(paths);
}

SizeCache SizeService::forgetAll() {
    ++forgettings_;
    return std::exchange(cache_, {});
}

/// With a permit if there is one, else in the queue for one.
void SizeService::begin(const std::shared_ptr<Task>& task) {
    if (running_.size() >= maxParallel_) {
        place(task, &waiting_);
        return watch();
    }
    place(task, &running_);
    work_.measure(task->path, task->stop.get_token(), task->progress,
                  [this, begun = std::weak_ptr(task)](SizeFindings findings) {
                      // The lists of the service are the only ones that keep a task.
                      if (const auto ended = begun.lock()) finish(ended, std::move(findings));
                  });
}

/// Puts a task last into a list, out of the one that it stands in.
void SizeService::place(std::shared_ptr<Task> task, Tasks* holder) {
    if (task->holder != nullptr) task->holder->erase(task->place);
    task->holder = holder;
    if (holder == nullptr) return;
    Task& placed = *task;
    placed.place = holder->insert(holder->end(), std::move(task));
}

void SizeService::finish(const std::shared_ptr<Task>& task, SizeFindings findings) {
    if (task->stop.stop_requested()) {
        // No request is left. The findings are kept unless paths were invalidated meanwhile.
        if (task->forgettings == forgettings_) cache_.storeBelow(std::move(findings.families));
        place(task, nullptr);
        return handOnPermits();
    }
    const Info info = findings.total;
    cache_.store(task->path, std::move(findings));
    inflight_.erase(task->path);
    place(task, nullptr);
    handOnPermits();
    for (const auto& each : task->waits) {
        // Held during the calls: an answer may destroy its Wait, or others.
        if (const auto wait = each.lock()) wait->answer_(info);
    }
}

/// Last come, first served: what was opened last is what a person looks at.
void SizeService::handOnPermits() {
    while (running_.size() < maxParallel_ && !waiting_.empty()) {
        const std::shared_ptr<Task> next = waiting_.back();
        place(next, nullptr);
        begin(next);
    }
}

void SizeService::watch() {
    if (std::exchange(isWatching_, true)) return;
    clock_.after(patience, [this, life = std::weak_ptr(life_)] {
        if (!life.expired()) look();
    });
}

/// Takes the permits of the walks that made no progress since the last look.
void SizeService::look() {
    isWatching_ = false;
    if (waiting_.empty()) return;
    std::vector<std::weak_ptr<Wait>> waits;
    for (const std::shared_ptr<Task>& task : std::vector(running_.begin(), running_.end())) {
        const std::uint64_t progress = *task->progress;
        if (std::exchange(task->progressSeen, progress) != progress) continue;
        place(task, &stalled_);
        waits.insert(waits.end(), task->waits.begin(), task->waits.end());
    }
    handOnPermits();
    if (!waiting_.empty()) watch();
    for (const auto& each : waits) {
        const auto wait = each.lock();
        if (wait && wait->stalled_) wait->stalled_();
    }
}

/// Called when no request is left. A walk under way keeps its permit until it has stopped.
void SizeService::abandon(const std::shared_ptr<Task>& task) {
    if (task->holder == nullptr) return;  // it has ended, and is telling
    inflight_.erase(task->path);
    if (task->holder == &waiting_) {
        place(task, nullptr);
    } else {
        task->stop.request_stop();
    }
}

}  // namespace tavrel
