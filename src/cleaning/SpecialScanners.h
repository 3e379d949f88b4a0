#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/Manner.h"
#include "cleaning/SafetyGuard.h"
#include "core/Instant.h"
#include "core/Text.h"
#include "platform/RunningApplications.h"
#include "platform/Shell.h"
#include "platform/root/RootStep.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Targets that need more than a catalog row: a walk, a comparison of versions, an age, a tool. Every scanner
/// gives finished items that the guard has allowed, and never fails: what cannot be read is passed over.
namespace tavrel::SpecialScanners {

/// Nothing smaller is worth a line.
inline constexpr std::int64_t minItemSize = 65536;

using Path = std::filesystem::path;
using Items = std::vector<CleanItem>;

/// A folder in an application's data that its browser engine fills, and what its loss costs.
struct WebCache {
    std::string_view path;
    Risk risk = Risk::safe;
    Text::English note = "";  // empty: it is rebuilt on the next launch
};

inline constexpr WebCache webCaches[] = {
    {"Cache"},
    {"Code Cache"},
    {"GPUCache"},
    {"DawnCache"},
    {"DawnGraphiteCache"},
    {"DawnWebGPUCache"},
    {"ShaderCache"},
    {"GrShaderCache"},
    {"Service Worker/CacheStorage"},
    {"Service Worker/ScriptCache"},
};

/// Where applications keep their data: each entry of a folder that matches `folders` is one's.
struct WebCachePlaces {
    std::string folders;               // relative to the home; parts may hold "*"
    std::string skippedPrefix;         // names that belong to the system; empty for none
    std::vector<std::string> skipped;  // names with catalog rows
    std::vector<WebCache> caches;
    std::vector<std::string> parts = {""};  // of an application's data, with caches of its own; patterns
};

/// One kind of sandbox: every entry of `folder` keeps a cache at `inner`. Relative to the home.
struct ContainerPlace {
    Path folder;
    Path inner;
    std::vector<std::string> reviewed;  // entries whose cache may hold more than what can be had again
};

/// A folder of the system, some of whose entries root may remove.
struct SystemFolder {
    enum class Takes { anything, files };

    Path folder;
    Takes takes = Takes::anything;
    std::vector<std::string> extensions;  // exactly as written; empty: every entry
    std::string skippedPrefix;            // of names; empty for none
    int minAgeDays = 0;  // 0: age plays no part; else a date that cannot be read counts as new
    std::int64_t minSize = 1;
    Risk risk = Risk::safe;
    std::string note;
};

/// A command that frees what no plain path names, offered where its tool exists.
struct SystemCommand {
    /// Files that the command removes, judged by their names: in the folder and three levels below it.
    struct Empties {
        Path folder;
        std::string nameHolds;
        int minAgeDays = 0;
    };

    Path tool;
    ToolRun run;  // its command line is also the item's name
    std::vector<Empties>
        empties;  // their sizes make the item's; without any the size is unknown and stands as 0
    Risk risk = Risk::safe;
    std::string note;
};

/// Where disabled revisions of packages lie, and the tool that names them.
struct PackageRevisions {
    Path tool;
    Path folder;
};

/// Runtimes that applications share, and the tool that removes a user's. Applications of the other
/// installations use them too.
struct SharedRuntimes {
    enum class Owner { system, user };

    Path tool;
    Path installation;
    std::vector<Path> others;
    Owner owner = Owner::system;
};

/// Everything system-owned that a profile knows, absolute paths already below the root in force.
struct SystemPlaces {
    std::vector<SystemFolder> folders;
    std::vector<SystemCommand> commands;
    std::optional<Path> snapshotTool;  // lists local snapshots of the disk
    std::optional<PackageRevisions> packages;
    std::optional<SharedRuntimes> runtimes;
    std::vector<Path> roots;  // the guard's extra roots for these items
};

/// The Trashes of mounted volumes other than the home's: the folders whose entries are what lies in them,
/// which are also the roots under which the guard admits those.
using VolumeTrashes = std::vector<Path>;

/// What an AI tool leaves in a folder of its own. A part of the path with a "*" stands for every name.
struct AiFolder {
    std::string_view path;  // relative to the home
    CleanCategory category = CleanCategory::aiCaches;
    Risk risk = Risk::safe;
    Text::English note = "";
};

/// What every profile knows of: `ai` adds the folders of its own, whose rows win over these.
[[nodiscard]] Items ai(const Path& home, const SafetyGuard& safety, int sessionAgeDays, Instant now,
                       std::span<const AiFolder> folders = {});

/// What the scanners of a home work with; guard and applications are borrowed.
struct Search {
    Path home;
    const SafetyGuard& safety;
    const RunningApplications& running;
    Manner manner;
};

[[nodiscard]] Items appWebCaches(const std::vector<WebCachePlaces>& places, const Search& search);

/// Needs full disk access where the system hides containers.
[[nodiscard]] Items containerCaches(const std::vector<ContainerPlace>& places, const Search& search,
                                    const ApplicationNames& names);

[[nodiscard]] Items oldEditorExtensions(const Path& home, const SafetyGuard& safety);

/// Every item needs root. `safety` admits the roots of `places`. Commands and snapshots are not vetted: their
/// urls are names that never reach the disk. A command is called what it is, so that a person can type it.
[[nodiscard]] Items systemData(const SystemPlaces& places, Shell& shell, const SafetyGuard& safety,
                               Instant now);

/// What no application needs of the runtimes; the user's go without root.
[[nodiscard]] Items runtimes(const SharedRuntimes& shared);

/// The entries of the Trashes, whose folders `safety` admits. In a Trash with notes an entry is for review if
/// it was deleted within `reviewDays` or its note has no date. `reviewDays` is 0 where Trashes keep no notes.
[[nodiscard]] Items trashed(const VolumeTrashes& trashes, int reviewDays, const SafetyGuard& safety,
                            Instant now);

/// Every version in a folder but the one modified last.
[[nodiscard]] Items olderVersions(const Path& in, CleanCategory category, const std::string& label,
                                  const SafetyGuard& safety);

}  // namespace tavrel::SpecialScanners
