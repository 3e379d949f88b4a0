#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tavrel {

/// One thing in the folder that is looked at. What is not measured yet has no value.
struct AnalyzeEntry {
    std::filesystem::path url;
    std::optional<std::int64_t> size;   // allocated bytes
    std::optional<std::int64_t> files;  // at any depth; 1 for a file
    bool isFolder = false;              // one that may be opened; a package may not

    bool operator==(const AnalyzeEntry&) const = default;
};

/// A sub-folder of an entry.
struct SubSlice {
    std::filesystem::path url;
    std::int64_t size = 0;
    std::int64_t files = 0;

    bool operator==(const SubSlice&) const = default;
};

/// The known sub-folders of each entry, largest first, by the entry's path.
using SubSlices = std::map<std::string, std::vector<SubSlice>>;

/// What is highlighted: an entry, a sub-folder of one, or all the small entries together.
namespace AnalyzeFocuses {
struct Entry {
    std::string path;
    bool operator==(const Entry&) const = default;
};
struct Slice {
    SubSlice slice;
    bool operator==(const Slice&) const = default;
};
struct Other {
    bool operator==(const Other&) const = default;
};
}  // namespace AnalyzeFocuses
using AnalyzeFocus = std::variant<AnalyzeFocuses::Entry, AnalyzeFocuses::Slice, AnalyzeFocuses::Other>;

}  // namespace tavrel
