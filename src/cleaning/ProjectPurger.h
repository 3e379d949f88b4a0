#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/SafetyGuard.h"
#include "core/Instant.h"
#include "core/Text.h"

#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

/// Finds what software projects build and download, and can make again. A folder's name proves nothing: the
/// tool's own marker must lie beside it.
namespace tavrel::ProjectPurger {

using Path = std::filesystem::path;

struct Artifact {
    std::string_view folder;
    std::vector<std::string_view>
        markers;             // at least one must stand beside the folder; empty: none is needed
    Risk risk = Risk::safe;  // in a project that nobody touches
    Text::English note = "";
};

[[nodiscard]] std::span<const Artifact> artifacts();

/// Artifacts below the roots, largest first. In a project touched within `staleDays` they are only for
/// review.
[[nodiscard]] std::vector<CleanItem> scan(const std::vector<Path>& roots, int staleDays,
                                          const SafetyGuard& safety, Instant now);

/// Folders directly under `home` that hold Git projects, up to two levels down.
[[nodiscard]] std::vector<Path> discoveredRoots(const Path& home);

/// Standardised, resolved, without repeats and without folders below another of the list; ascending.
[[nodiscard]] std::vector<Path> mergedRoots(const std::vector<Path>& roots);

}  // namespace tavrel::ProjectPurger
