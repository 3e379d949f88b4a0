#pragma once

#include "cleaning/CleanItem.h"
#include "cleaning/CleanMode.h"
#include "cleaning/JunkScanner.h"
#include "core/Instant.h"
#include "core/PreferenceValues.h"
#include "engine/SystemTools.h"
#include "platform/RunningApplications.h"
#include "profiles/Profile.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <vector>

namespace tavrel {

/// What narrows or replaces what the preferences say; as made, nothing.
struct ScanOptions {
    std::set<CleanCategory> categories;               // only these groups; every one when empty
    std::optional<RunningApplications> running;       // for the system mode; those of the machine when absent
    std::optional<std::int64_t> staleDays;            // the age of an untouched project
    int sessionAgeDays = 90;                          // the age of an old session of an AI tool
    std::vector<std::filesystem::path> projectRoots;  // where projects are looked for, and nowhere else
};

/// What each mode of a clean looks for, and what its guard admits besides the home. Finders only read, and
/// may run on any thread; `profile` and `tools` must outlive them.
class Finders {
  public:
    using Items = std::vector<CleanItem>;
    using Path = std::filesystem::path;

    Finders(const Profile& profile, const SystemTools& tools) : profile_(profile), tools_(tools) {}

    /// A guard of this moment for what `mode` finds.
    [[nodiscard]] SafetyGuard guard(CleanMode mode, const PreferenceValues& preferences) const;

    /// What `mode` finds, in the order of the mode. The system mode calls `progress` before each group.
    [[nodiscard]] Items find(
        CleanMode mode, const PreferenceValues& preferences, Instant now, const ScanOptions& options = {},
        const JunkScanner::Progress& progress = [](CleanCategory) {}) const;

  private:
    [[nodiscard]] Items all(CleanMode mode, const PreferenceValues& preferences, Instant now,
                            const ScanOptions& options, const JunkScanner::Progress& progress) const;
    [[nodiscard]] Items junk(const SafetyGuard& guard, Instant now, const ScanOptions& options,
                             const JunkScanner::Progress& progress) const;
    [[nodiscard]] std::vector<Path> projectRoots(const PreferenceValues& preferences,
                                                 const ScanOptions& options) const;
    /// The items, those that are in use for review.
    [[nodiscard]] Items judgedByUse(Items items) const;

    const Profile& profile_;
    const SystemTools& tools_;
};

}  // namespace tavrel
