#pragma once

#include "disk/AnalyzeEntry.h"

#include <filesystem>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// What one folder holds, in the order of the names.
struct FolderListing {
    using Paths = std::shared_ptr<const std::vector<std::string>>;

    std::vector<AnalyzeEntry> all;  // files with their size, all others to be measured
    Paths paths;                    // those of `all`, shared with work in the background

    /// Endings of folders that count as one thing, without the dot and in lower case.
    using Packages = std::vector<std::string_view>;

    /// Hidden entries are listed, symbolic links and what vanishes meanwhile are not. A folder that cannot be
    /// read is empty; when stopped, the answer is of no use to anybody.
    [[nodiscard]] static FolderListing of(const std::filesystem::path& folder, const Packages& packages,
                                          const std::stop_token& stop = {});
};

}  // namespace tavrel
