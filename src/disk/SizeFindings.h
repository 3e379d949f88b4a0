#pragma once

#include "disk/DiskIndex.h"

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tavrel {

/// What is known of the things in one folder, by name.
struct SizeFamily {
    struct Figure {
        DiskIndex::Info info;
        bool known = false;    // whether `info` holds
        bool isChild = false;  // whether a walk of the folder or of one above met it as a sub-folder
    };
    /// Names are looked up as they stand in a longer path.
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
    };
    using Figures = std::unordered_map<std::string, Figure, Hash, std::equal_to<>>;
    /// By the path of the folder: what lies below a path stands together.
    using ByFolder = std::map<std::string, SizeFamily, std::less<>>;

    Figures figures;
};

/// A path cut before its last component.
struct SizeKey {
    std::string_view folder;
    std::string_view name;
    [[nodiscard]] static SizeKey of(std::string_view path);
};

/// The figures of one walk, sorted by folder on the walking thread, so that storing them is cheap.
struct SizeFindings {
    DiskIndex::Info total;
    SizeFamily::ByFolder families;

    [[nodiscard]] static SizeFindings of(const DiskIndex::Measurement& measurement);
};

}  // namespace tavrel
