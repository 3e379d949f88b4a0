#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "cleaning/CleanItem.h"
#include "cleaning/SafetyGuard.h"
#include "core/Instant.h"
#include "platform/RunningApplications.h"
#include "platform/Shell.h"

/// Targets that need more than a catalog row: a walk, a comparison of versions, an age, a tool. Every scanner gives
/// finished items that the guard has allowed, and never fails: what cannot be read is passed over.
namespace tavrel::SpecialScanners {

using Path = std::filesystem::path;
using Items = std::vector<CleanItem>;

/// Web caches that browser engines leave in an application's folder.
inline constexpr std::string_view webCacheNames[] = {
    "Cache",          "Code Cache",  "GPUCache",      "DawnCache",
    "DawnGraphiteCache", "DawnWebGPUCache", "ShaderCache", "GrShaderCache",
    "Service Worker/CacheStorage", "Service Worker/ScriptCache",
};

/// Where applications keep their data, and which of them have rows of their own.
struct WebCachePlaces {
    Path folder;                         // relative to the home
    std::string skippedPrefix;           // names that belong to the system; empty for none
    std::vector<std::string> skipped;    // names with catalog rows
};

/// One kind of sandbox: every entry of `folder` keeps a cache at `inner`. Relative to the home.
struct ContainerPlace {
    Path folder;
    Path inner;
    CleanCategory category = CleanCategory::userCaches;
};

/// A folder of the system whose entries root may remove.
struct SystemFolder {
    enum class Takes { everything, rotated, files };

    Path folder;
    Takes takes = Takes::everything;  // `rotated`: files with one of the extensions below; `files`: every file
    std::vector<std::string> extensions;
    std::string skippedPrefix;  // of names; empty for none
    int minAgeDays = 0;
    std::int64_t minSize = 1;
    Risk risk = Risk::safe;
    std::string note;
};

/// A command that frees what no plain path names, offered where `tool` exists.
struct SystemCommand {
    std::string identifier;  // last part of the item's url
    Path tool;
    std::string command;
    std::vector<Path> measured;  // what it empties; the sum of their sizes is the item's
    int measuredMinAgeDays = 0;  // only what is older counts
    Risk risk = Risk::safe;
    std::string note;
};

/// Everything system-owned that a profile knows, absolute paths already below the root in force.
struct SystemPlaces {
    std::vector<SystemFolder> folders;
    std::vector<SystemCommand> commands;
    std::optional<Path> snapshotTool;  // lists local snapshots
    std::optional<Path> packageTool;   // lists installed revisions of packages, disabled ones among them
    std::vector<Path> roots;           // the guard's extra roots for these items
};

/// The Trashes of mounted volumes: their entries, and the roots under which the guard admits them.
struct VolumeTrashes {
    std::vector<Path> contents;
};

[[nodiscard]] Items ai(const Path& home, const SafetyGuard& safety, int sessionAgeDays, Instant now);

[[nodiscard]] Items appWebCaches(const std::vector<WebCachePlaces>& places, const Path& home,
                                 const std::set<std::string>& runningNames, const SafetyGuard& safety);

/// Empty without full disk access: the system would refuse these reads anyway.
[[nodiscard]] Items containerCaches(const std::vector<ContainerPlace>& places, const Path& home,
                                    const std::set<std::string>& runningBundleIDs, bool hasFullDiskAccess,
                                    const ApplicationNames& names, const SafetyGuard& safety);

[[nodiscard]] Items oldEditorExtensions(const Path& home, const SafetyGuard& safety);

[[nodiscard]] Items systemData(const SystemPlaces& places, Shell& shell, const SafetyGuard& safety, Instant now);

[[nodiscard]] Items volumeTrashes(const VolumeTrashes& trashes, const SafetyGuard& safety);

/// Every version in a folder but the newest.
[[nodiscard]] Items olderVersions(const Path& in, CleanCategory category, const std::string& label,
                                  const SafetyGuard& safety);

}  // namespace tavrel::SpecialScanners
