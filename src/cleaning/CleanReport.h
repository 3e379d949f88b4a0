#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/TrashedItem.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {

/// What one clean did, or in a preview would have done.
struct CleanReport {
    struct Skipped {
        CleanItem item;
        std::string reason;  // in the user's words
        bool operator==(const Skipped&) const = default;
    };

    std::int64_t freed = 0;    // bytes of all that is in `removed`, the Trash included
    std::int64_t trashed = 0;  // the part of `freed` that waits in the Trash
    std::vector<CleanItem> removed;
    std::vector<Skipped> skipped;
    bool dryRun = false;
    std::vector<TrashedItem> inTrash = {};  // where the things lie that make up `trashed`; none in a preview

    bool operator==(const CleanReport&) const = default;
};

}  // namespace tavrel
