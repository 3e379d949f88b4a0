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
#include <set>
#include <vector>

namespace tavrel {

/// What each mode of a clean looks for, and what its guard admits besides the home. Finders only read, and
/// may run on any thread; `profile` and `tools` must outlive them.
class Finders {
  public:
    using Items = std::vector<CleanItem>;
    using Path = std::filesystem::path;

    static constexpr int sessionAgeDays = 90;

    Finders(const Profile& profile, const SystemTools& tools) : profile_(profile), tools_(tools) {}

    /// A guard of this moment for what `mode` finds.
    [[nodiscard]] SafetyGuard guard(CleanMode mode, const PreferenceValues& preferences) const;

    /// The whole mode, as the preferences have it.
    [[nodiscard]] Items find(CleanMode mode, const PreferenceValues& preferences, Instant now) const;

    [[nodiscard]] Items junk(const std::set<CleanCategory>& categories, RunningApplications running,
                             const SafetyGuard& guard, Instant now,
                             const JunkScanner::Progress& progress) const;
    [[nodiscard]] Items ai(int ageDays, const SafetyGuard& guard, Instant now) const;
    [[nodiscard]] Items projects(const std::vector<Path>& roots, std::int64_t staleDays,
                                 const SafetyGuard& guard, Instant now) const;
    [[nodiscard]] Items installers(const SafetyGuard& guard, Instant now) const;

    /// The code folders of the preferences and those that are discovered in the home, merged.
    [[nodiscard]] std::vector<Path> projectRoots(const PreferenceValues& preferences) const;

  private:
    /// The items, those that are in use for review.
    [[nodiscard]] Items judgedByUse(Items items) const;

    const Profile& profile_;
    const SystemTools& tools_;
};

}  // namespace tavrel
