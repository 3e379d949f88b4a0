#pragma once

#include "disk/DiskIndex.h"
#include "disk/SizeCache.h"
#include "disk/SizeFindings.h"
#include "models/analyze/DiskWork.h"
#include "models/support/Background.h"
#include "models/support/Clock.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tavrel {

/// The shared front of the walker: remembers what was measured, lets everybody who asks for one folder wait
/// for one walk, and bounds how many walks go on at once. A walk without a waiting caller is stopped;
/// the folders in it that were finished by then are remembered. A walk that stalls, on a dead mount say,
/// gives its permit to the next one, and goes on without one if it can. Confined to one thread; the walks run
/// elsewhere.
class SizeService {
  public:
    using Info = DiskIndex::Info;
    using Answer = std::function<void(const Info&)>;
    using Stalled = std::function<void()>;

    /// How deep below what it measures a walk remembers folders.
    static constexpr int recordDepth = 2;
    /// A walk that makes no progress for this long has stalled. Looked at while others wait for a permit.
    static constexpr Clock::Duration patience = Background::defaultPatience;
    /// Two processors are left to everything else.
    [[nodiscard]] static std::size_t parallelWalks(unsigned processors);

  private:
    struct Task;

  public:
    /// Handle of a pending info() request. Destroying it cancels the request: `answer` is not called. May
    /// outlive the service.
    class Wait {
      public:
        Wait(SizeService& service, std::weak_ptr<Task> task, Answer answer, Stalled stalled);
        ~Wait();
        Wait(const Wait&) = delete;
        Wait& operator=(const Wait&) = delete;

      private:
        friend class SizeService;
        SizeService& service_;
        std::weak_ptr<Task> task_;
        Answer answer_;
        Stalled stalled_;
    };

    /// `work` and `clock` outlive the service.
    SizeService(DiskWork& work, Clock& clock, std::size_t maxParallel);
    /// Stops the walks that run.
    ~SizeService();
    SizeService(const SizeService&) = delete;
    SizeService& operator=(const SizeService&) = delete;

    /// If `of` is cached, calls `answer` before returning and returns null. Otherwise joins or starts a walk,
    /// returns its Wait, and calls `answer` once, later, on this thread. Unreadable paths give zeros.
    /// `stalled` is called when the walk stalls, at most once; the answer may come all the same.
    [[nodiscard]] std::shared_ptr<Wait> info(const std::string& of, Answer answer, Stalled stalled = {});

    [[nodiscard]] const SizeCache& cache() const { return cache_; }
    [[nodiscard]] std::size_t maxParallel() const { return maxParallel_; }
    /// Walks with a permit.
    [[nodiscard]] std::size_t running() const { return running_.size(); }
    [[nodiscard]] std::size_t waiting() const { return waiting_.size(); }

    /// Forgets `paths` with everything below and above them. A walk under way still answers its requests.
    [[nodiscard]] SizeCache::Evicted invalidate(std::span<const std::string_view> paths);
    /// Forgets everything, so that all is measured anew. What it was is handed over: letting go of it may
    /// take long.
    [[nodiscard]] SizeCache forgetAll();

  private:
    using Tasks = std::list<std::shared_ptr<Task>>;

    void begin(const std::shared_ptr<Task>& task);
    void finish(const std::shared_ptr<Task>& task, SizeFindings findings);
    void place(std::shared_ptr<Task> task, Tasks* holder);
    void handOnPermits();
    void watch();
    void look();
    void abandon(const std::shared_ptr<Task>& task);

    DiskWork& work_;
    Clock& clock_;
    std::size_t maxParallel_;
    SizeCache cache_;
    std::size_t forgettings_ = 0;
    std::unordered_map<std::string, std::shared_ptr<Task>> inflight_;  // what may still be joined
    Tasks running_;  // each holds a permit, stopped ones too
    Tasks waiting_;  // for a permit, longest first
    Tasks stalled_;  // under way, without a permit
    bool isWatching_ = false;
    std::shared_ptr<void> life_ = std::make_shared<char>();  // the clock may outlive this object
};

}  // namespace tavrel
