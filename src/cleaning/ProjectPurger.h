#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/SafetyGuard.h"
#include "core/Instant.h"
#include "core/Text.h"

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

/// Finds what software projects build and download, and can make again. A folder's name proves nothing: the
/// tool's own marker must lie beside it or in it. What version control tracks is only for review.
namespace tavrel::ProjectPurger {

using Path = std::filesystem::path;

struct Artifact {
    std::string_view folder;
    /// At least one must stand beside the folder; empty: none is needed. "*.x" is any name that ends in ".x".
    std::vector<std::string_view> markers;
    Risk risk = Risk::safe;  // in a project without recent work
    Text::English note = "";
    std::vector<std::string_view> inside =
        {};  // at least one must stand in the folder; empty: none is needed
    std::vector<std::string_view> endings =
        {};  // a file in it without one of them makes it review; empty: any
};

/// How a family of systems looks at projects.
struct Tables {
    /// How recent work in a project is recognised.
    enum class Activity {
        topLevel,  // the newest date directly beside the artifact
        sources,   // the newest file of the project two folders down, and what git notes about commits
    };
    /// What stands in a note.
    enum class Notes {
        folder,   // the name of the folder around the artifact; that it is in use stands in place of what it
                  // is
        project,  // the name of the project; what the artifact is stands in every note
    };

    std::vector<Artifact> artifacts;  // of rows for one folder the first whose markers are there counts
    std::vector<std::string_view> strays = {};  // names of files that other systems leave anywhere
    Activity activity = Activity::topLevel;
    Notes notes = Notes::folder;
};

/// Artifacts below the roots, largest first. In a project touched within `staleDays` they are only for
/// review.
[[nodiscard]] std::vector<CleanItem> scan(const Tables& tables, const std::vector<Path>& roots,
                                          std::int64_t staleDays, const SafetyGuard& safety, Instant now);

/// Folders directly under `home` that hold Git projects, up to two levels down.
[[nodiscard]] std::vector<Path> discoveredRoots(const Path& home);

/// Standardised, resolved, without repeats and without folders below another of the list; ascending.
[[nodiscard]] std::vector<Path> mergedRoots(const std::vector<Path>& roots);

}  // namespace tavrel::ProjectPurger
