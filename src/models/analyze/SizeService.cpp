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
    std::size_t forgettings = 0;  // those before it
    Tasks* holder = nullptr;      // the list that it stands in
    Tasks::iterator place;
};

std::size_t SizeService::parallelWalks(unsigned processors) {
    constexpr unsigned fewest = 4;
    constexpr unsigned spared = 2;
    return std::max(processors, fewest + spared) - spared;
}

SizeService::Wait::Wait(SizeService& service, std::weak_ptr<Task> task, Answer answer)
    : service_(service), task_(std::move(task)), answer_(std::move(answer)) {}

SizeService::Wait::~Wait() {
    const std::shared_ptr<Task> task = task_.lock();
    if (task && --task->waiters == 0) service_.abandon(task);
}

SizeService::SizeService(Walk walk, std::size_t maxParallel)
    : walk_(std::move(walk)), maxParallel_(maxParallel) {}

SizeService::~SizeService() {
    for (const auto& task : running_) task->stop.request_stop();
}

std::shared_ptr<SizeService::Wait> SizeService::info(const std::string& of, Answer answer) {
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
    auto wait = std::make_shared<Wait>(*this, task, std::move(answer));
    task->waits.push_back(wait);
    ++task->waiters;
    if (isNew) begin(task);
    return wait;
}

SizeCache::Forgotten SizeService::invalidate(std::span<const std::string_view> paths) {
    ++forgettings_;
    return cache_.forget(paths);
}

SizeCache SizeService::forgetAll() {
    ++forgettings_;
    return std::exchange(cache_, {});
}

/// With a permit if there is one, else in the queue for one.
void SizeService::begin(const std::shared_ptr<Task>& task) {
    Tasks& tasks = running_.size() < maxParallel_ ? running_ : waiting_;
    task->holder = &tasks;
    task->place = tasks.insert(tasks.end(), task);
    if (&tasks == &waiting_) return;
    walk_(task->path, task->stop.get_token(), [this, begun = std::weak_ptr(task)](SizeFindings findings) {
        // The lists of the service are the only ones that keep a task.
        if (const auto ended = begun.lock()) finish(ended, std::move(findings));
    });
}

void SizeService::finish(const std::shared_ptr<Task>& task, SizeFindings findings) {
    if (task->stop.stop_requested()) {
        // Nobody is told; what it found stands unless some of it was to be forgotten meanwhile.
        if (task->forgettings == forgettings_) cache_.storeBelow(std::move(findings.families));
        return handOnPermit(task);
    }
    const Info info = findings.total;
    cache_.store(task->path, std::move(findings));
    inflight_.erase(task->path);
    handOnPermit(task);
    for (const auto& each : task->waits) {
        // Held while it is told: whoever is told may let go of it, or of others.
        if (const auto wait = each.lock()) wait->answer_(info);
    }
}

/// Last come, first served: what was opened last is what a person looks at.
void SizeService::handOnPermit(const std::shared_ptr<Task>& task) {
    running_.erase(task->place);
    task->holder = nullptr;
    if (waiting_.empty()) return;
    const std::shared_ptr<Task> next = waiting_.back();
    waiting_.pop_back();
    begin(next);
}

/// Nobody waits for it any more. A walk under way keeps its permit until it has noticed.
void SizeService::abandon(const std::shared_ptr<Task>& task) {
    if (task->holder == nullptr) return;  // it has ended, and is telling
    inflight_.erase(task->path);
    if (task->holder == &running_) {
        task->stop.request_stop();
    } else {
        waiting_.erase(task->place);
    }
}

}  // namespace tavrel
