#pragma once

#include "cleaning/CleanJob.h"
#include "cleaning/Restorer.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace tavrel {

/// Asynchronous cleans, and what takes them back; those that change something run one at a time. Each call
/// returns at once and calls `done` once on the calling thread, later; never after this object's destruction.
class CleanRunner {
  public:
    template <typename Result>
    using Done = std::function<void(Result)>;
    using Report = std::shared_ptr<const CleanReport>;
    using Runs = std::shared_ptr<const Restorer::Runs>;

    virtual ~CleanRunner() = default;
    /// Calls the job's `progress` on the calling thread, in increasing order; the final value is never
    /// dropped by throttling and arrives before the report.
    virtual void clean(CleanJob job, Done<Report> done) = 0;
    /// Deletes everything in the home Trash. The answer is the number of bytes that went.
    virtual void emptyTrash(Done<std::int64_t> done) = 0;
    /// Looks up which things of these runs are in the Trash. Only reads.
    virtual void findTrashed(std::vector<History::Entry> entries, Done<Runs> done) = 0;
    /// Puts things back to where they were.
    virtual void restore(std::vector<Restorer::Item> items, Done<RestoreReport> done) = 0;
};

}  // namespace tavrel
