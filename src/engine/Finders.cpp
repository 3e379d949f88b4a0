#include "engine/Finders.h"

#include "cleaning/InUse.h"
#include "cleaning/InstallerFinder.h"
#include "cleaning/ProjectPurger.h"
#include "cleaning/SpecialScanners.h"
#include "core/Identity.h"
#include "core/Permissions.h"

#include <utility>

namespace tavrel {

namespace {

constexpr int recentInstallerDays = 7;

}  // namespace

SafetyGuard Finders::guard(CleanMode mode, const PreferenceValues& preferences) const {
    std::vector<Path> extraRoots;
    if (mode == CleanMode::system) extraRoots = profile_.scan.volumeTrashes;
    if (mode == CleanMode::installers) extraRoots = {profile_.places.applications()};
    return profile_.safetyGuard(preferences, std::move(extraRoots));
}

Finders::Items Finders::find(CleanMode mode, const PreferenceValues& preferences, Instant now) const {
    const SafetyGuard safety = guard(mode, preferences);
    switch (mode) {
        case CleanMode::system:
            return junk(JunkScanner::systemCategories(), tools_.running(), safety, now, [](CleanCategory) {});
        case CleanMode::ai:
            return ai(sessionAgeDays, safety, now);
        case CleanMode::projects:
            return projects(projectRoots(preferences), preferences.staleProjectDays, safety, now);
        case CleanMode::installers:
            return installers(safety, now);
    }
    return {};
}

Finders::Items Finders::junk(const std::set<CleanCategory>& categories, RunningApplications running,
                             const SafetyGuard& guard, Instant now,
                             const JunkScanner::Progress& progress) const {
    const Places& places = profile_.places;
    const JunkScanner::Context context = {
        .root = places.root(),
        .home = places.home(),
        .safety = guard,
        .running = std::move(running),
        .ownBundleID = Identity::bundleID,
        .hasFullDiskAccess = Permissions::hasFullDiskAccess(places.home(), profile_.fullDiskAccessProbes),
        .now = now,
    };
    return JunkScanner(profile_.scan, tools_.shell(), tools_.names()).scan(categories, context, progress);
}

Finders::Items Finders::ai(int ageDays, const SafetyGuard& guard, Instant now) const {
    return judgedByUse(SpecialScanners::ai(profile_.places.home(), guard, ageDays, now, profile_.aiFolders));
}

Finders::Items Finders::projects(const std::vector<Path>& roots, std::int64_t staleDays,
                                 const SafetyGuard& guard, Instant now) const {
    return judgedByUse(ProjectPurger::scan(profile_.projects, roots, staleDays, guard, now));
}

Finders::Items Finders::installers(const SafetyGuard& guard, Instant now) const {
    const Places& places = profile_.places;
    return judgedByUse(InstallerFinder::scan(profile_.installers,
                                             {places.downloads(), places.desktop(), places.documents()},
                                             guard, tools_.names(), recentInstallerDays, now));
}

Finders::Items Finders::judgedByUse(Items items) const {
    InUse::mark(items, tools_.running());
    return items;
}

std::vector<Finders::Path> Finders::projectRoots(const PreferenceValues& preferences) const {
    const Path& home = profile_.places.home();
    std::vector<Path> roots = preferences.projectRootURLs(home);
    const std::vector<Path> discovered = ProjectPurger::discoveredRoots(home);
    roots.insert(roots.end(), discovered.begin(), discovered.end());
    return ProjectPurger::mergedRoots(roots);
}

}  // namespace tavrel
