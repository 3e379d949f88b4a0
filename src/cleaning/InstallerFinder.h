#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/SafetyGuard.h"
#include "core/Instant.h"
#include "platform/RunningApplications.h"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

/// Finds disk images, packages and system installers, which only take up room once their software is
/// installed.
namespace tavrel::InstallerFinder {

using Path = std::filesystem::path;

/// What counts as an installer, and where whole system installers lie. Extensions are in lower case.
struct Tables {
    std::set<std::string> extensions;
    std::set<std::string> packages;  // of folders that look like one file: never searched
    Path applications;
    std::set<std::string> alsoWorks = {};  // of `extensions`: people make such files themselves, too
    std::set<std::string> programs = {};   // of `extensions`: the file is the application
    std::vector<std::string> toolchains =
        {};                          // lower-case names of archives with tools (fnmatch(3)), in inboxes
    std::vector<Path> inboxes = {};  // where what lies there was downloaded or put aside
};

/// Installers in the roots and in their direct sub-folders, and the system installers among the applications;
/// largest first. What was modified within `recentDays` is for review, and so is what may be more than an
/// installer. An application that an entry of the menu starts is none.
[[nodiscard]] std::vector<CleanItem> scan(const Tables& tables, const std::vector<Path>& roots,
                                          const SafetyGuard& safety, const ApplicationNames& applications,
                                          int recentDays, Instant now);

/// Applications whose name begins with "Install macOS".
[[nodiscard]] std::vector<Path> macOSInstallers(const Path& applications, const SafetyGuard& safety);

}  // namespace tavrel::InstallerFinder
