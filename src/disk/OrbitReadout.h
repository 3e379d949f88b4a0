#pragma once

#include "disk/OrbitLayout.h"

#include <optional>
#include <string>

namespace tavrel {

/// What stands in the middle of the picture: the figures of what is highlighted, or of the whole folder.
struct OrbitReadout {
    std::string icon;  // our name of a symbol
    std::string name;
    std::string size;
    std::string detail;

    bool operator==(const OrbitReadout&) const = default;
};

/// The folder that is looked at.
struct OrbitFolder {
    std::filesystem::path url;
    bool isRoot = false;
    std::int64_t total = 0;  // bytes
    std::int64_t files = 0;
};

namespace OrbitChart {

/// In the user's language. `entry` is the one in focus; nullptr where none is.
[[nodiscard]] OrbitReadout readout(const OrbitLayout& layout, const std::optional<AnalyzeFocus>& focus,
                                   const AnalyzeEntry* entry, const OrbitFolder& folder);

/// What a screen reader says of an arc: its name, size and share.
[[nodiscard]] std::string spoken(const OrbitLayout& layout, const OrbitSegment& segment);

}  // namespace OrbitChart
}  // namespace tavrel
