#pragma once

#include "disk/DiskIndex.h"
#include "disk/SizeCache.h"
#include "disk/SizeFindings.h"

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
/// for one walk, and bounds how many walks run at once. A walk that nobody waits for any more is stopped; the
/// folders in it that were finished by then are remembered.
/// Confined to one thread; the walks themselves run elsewhere.
class SizeService {
  public:
    using Info = DiskIndex::Info;
    using Answer = std::function<void(const Info&)>;
    using Done = std::function<void(SizeFindings)>;
    /// Begins a walk of a path elsewhere, and calls `Done` on this thread once, after it has returned. When
    /// the program ends it may never be called.
    using Walk = std::function<void(std::filesystem::path, std::stop_token, Done)>;

    /// How deep below what it measures a walk remembers folders.
    static constexpr int recordDepth = 2;
    /// Two processors are left to everything else.
    [[nodiscard]] static std::size_t parallelWalks(unsigned processors);

  private:
    struct Task;

  public:
    /// Somebody waits for a measurement as long as this lives. Letting go of it gives the wait up: the answer
    /// is not called then. May outlive the service.
    class Wait {
      public:
        Wait(SizeService& service, std::weak_ptr<Task> task, Answer answer);
        ~Wait();
        Wait(const Wait&) = delete;
        Wait& operator=(const Wait&) = delete;

      private:
        friend class SizeService;
        SizeService& service_;
        std::weak_ptr<Task> task_;
        Answer answer_;
    };

    SizeService(Walk walk, std::size_t maxParallel);
    /// Stops the walks that run.
    ~SizeService();
    SizeService(const SizeService&) = delete;
    SizeService& operator=(const SizeService&) = delete;

    /// The answer comes from the cache before this returns, with no wait to hold; else it comes later, once,
    /// from a walk that was under way or begins for it. What cannot be measured answers zeros.
    [[nodiscard]] std::shared_ptr<Wait> info(const std::string& of, Answer answer);

    [[nodiscard]] const SizeCache& cache() const { return cache_; }
    [[nodiscard]] std::size_t maxParallel() const { return maxParallel_; }
    [[nodiscard]] std::size_t running() const { return running_.size(); }
    [[nodiscard]] std::size_t waiting() const { return waiting_.size(); }

    /// Forgets paths with everything below and above them. A walk under way still tells what it finds.
    [[nodiscard]] SizeCache::Forgotten invalidate(std::span<const std::string_view> paths);
    /// Forgets everything, so that all is measured anew. What it was is handed over: letting go of it may
    /// take long.
    [[nodiscard]] SizeCache forgetAll();

  private:
    using Tasks = std::list<std::shared_ptr<Task>>;

    void begin(const std::shared_ptr<Task>& task);
    void finish(const std::shared_ptr<Task>& task, SizeFindings findings);
    void handOnPermit(const std::shared_ptr<Task>& task);
    void abandon(const std::shared_ptr<Task>& task);

    Walk walk_;
    std::size_t maxParallel_;
    SizeCache cache_;
    std::size_t forgettings_ = 0;
    std::unordered_map<std::string, std::shared_ptr<Task>> inflight_;  // what may still be joined
    Tasks running_;  // each holds a permit, stopped ones too
    Tasks waiting_;  // for a permit, longest first
};

}  // namespace tavrel
