#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/SafetyGuard.h"
#include "core/Instant.h"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

/// Finds disk images, packages and system installers, which only take up room once their software is
/// installed.
namespace tavrel::InstallerFinder {

using Path = std::filesystem::path;

/// What counts as an installer, and where whole system installers lie.
struct Tables {
    std::set<std::string> extensions;  // lower case
    std::set<std::string> packages;    // extensions of folders that look like one file: never searched
    Path applications;
};

/// Installers in the roots and in their direct sub-folders, and the system installers among the applications;
/// largest first. What was modified within `recentDays` is for review.
[[nodiscard]] std::vector<CleanItem> scan(const Tables& tables, const std::vector<Path>& roots,
                                          const SafetyGuard& safety, int recentDays, Instant now);

/// Applications whose name begins with "Install macOS".
[[nodiscard]] std::vector<Path> macOSInstallers(const Path& applications, const SafetyGuard& safety);

}  // namespace tavrel::InstallerFinder
