#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/SafetyGuard.h"
#include "core/Paths.h"
#include "disk/FileSizer.h"

#include <algorithm>
#include <filesystem>
#include <vector>

/// What every scanner does with a path that it has found.
namespace tavrel::Scanning {

/// Whether the guard would let the path go.
[[nodiscard]] inline bool vet(const SafetyGuard& safety, const std::filesystem::path& path) {
    return safety.check(path).isAllowed();
}

/// `name · phrase`, the form of every note that names whose data it is.
[[nodiscard]] inline std::string note(const std::string& name, const std::string& phrase) {
    return name + " · " + phrase;
}

/// Largest first; equal ones keep their order.
inline void sortBySize(std::vector<CleanItem>& items) {
    std::stable_sort(items.begin(), items.end(),
                     [](const auto& a, const auto& b) { return a.size > b.size; });
}

}  // namespace tavrel::Scanning
