#pragma once

#include "cleaning/Cleaner.h"
#include "cleaning/Restorer.h"

#include <QFuture>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tavrel {

/// One clean, whole: everything that its run uses is a copy.
struct CleanJob {
    std::vector<CleanItem> items;
    std::string action;  // the word in the history
    SafetyGuard guard;
    Cleaner::Options options;
    /// May be empty. Called on the main thread, in order, before the report; the last share always is told.
    std::function<void(double)> progress;
};

/// Runs cleans, and what takes them back, away from the main thread, one at a time.
class CleanRunner {
  public:
    using Report = std::shared_ptr<const CleanReport>;
    using Runs = std::shared_ptr<const Restorer::Runs>;

    virtual ~CleanRunner() = default;
    [[nodiscard]] virtual QFuture<Report> clean(CleanJob job) = 0;
    /// Deletes everything in the home Trash; the bytes that went.
    [[nodiscard]] virtual QFuture<std::int64_t> emptyTrash() = 0;
    /// What of these runs waits in the Trash.
    [[nodiscard]] virtual QFuture<Runs> findTrashed(std::vector<History::Entry> entries) = 0;
    /// Puts things back to where they were.
    [[nodiscard]] virtual QFuture<RestoreReport> restore(std::vector<Restorer::Item> items) = 0;
};

}  // namespace tavrel
