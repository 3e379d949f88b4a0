#pragma once

#include "cleaning/Cleaner.h"

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

/// Runs cleans away from the main thread, one at a time.
class CleanRunner {
  public:
    using Report = std::shared_ptr<const CleanReport>;

    virtual ~CleanRunner() = default;
    [[nodiscard]] virtual QFuture<Report> clean(CleanJob job) = 0;
    /// Deletes everything in the home Trash; the bytes that went.
    [[nodiscard]] virtual QFuture<std::int64_t> emptyTrash() = 0;
};

}  // namespace tavrel
