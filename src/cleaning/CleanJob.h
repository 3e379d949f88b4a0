#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/CleanReport.h"
#include "cleaning/Cleaner.h"
#include "cleaning/SafetyGuard.h"
#include "core/PreferenceValues.h"

#include <functional>
#include <string>
#include <vector>

#include <tl/expected.hpp>

namespace tavrel {

/// One clean, whole: everything that its run uses is a copy.
struct CleanJob {
    /// Whether the folders that the user barred could be read.
    enum class ProtectedPaths { known, unknown };

    std::vector<CleanItem> items;
    std::string action;  // the word in the history
    SafetyGuard guard;
    Cleaner::Options options;
    /// Optional. Called with the share of the items that is done, 0 to 1, in increasing order.
    std::function<void(double)> progress;

    /// The job that the preferences allow, to be made right before it runs. While the protected folders are
    /// unknown nothing but a preview may run: the error then is a report that skips every item.
    [[nodiscard]] static tl::expected<CleanJob, CleanReport> make(std::vector<CleanItem> items,
                                                                  std::string action, SafetyGuard guard,
                                                                  const PreferenceValues& preferences,
                                                                  ProtectedPaths protectedPaths);

    /// Blocks until every item was removed or skipped. Calls `progress` on this thread.
    [[nodiscard]] CleanReport run(const Cleaner& cleaner) const;
};

}  // namespace tavrel
