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
    if (mode == CleanMode::system) extraRoots = profile_.scan.volumeTrashes();
    if (mode == CleanMode::installers) extraRoots = {profile_.places.applications()};
    return profile_.safetyGuard(preferences, std::move(extraRoots));
}

Finders::Items Finders::find(CleanMode mode, const PreferenceValues& preferences, Instant now,
                             const ScanOptions& options, const JunkScanner::Progress& progress) const {
    Items found = all(mode, preferences, now, options, progress);
    if (!options.categories.empty())
        std::erase_if(found,
                      [&](const CleanItem& item) { return !options.categories.contains(item.category); });
    return found;
}

Finders::Items Finders::all(CleanMode mode, const PreferenceValues& preferences, Instant now,
                            const ScanOptions& options, const JunkScanner::Progress& progress) const {
    const SafetyGuard safety = guard(mode, preferences);
    const Places& places = profile_.places;
    switch (mode) {
        case CleanMode::system:
            return junk(safety, now, options, progress);
        case CleanMode::ai:
            return judgedByUse(
                SpecialScanners::ai(places.home(), safety, options.sessionAgeDays, now, profile_.aiFolders));
        case CleanMode::projects:
            return judgedByUse(ProjectPurger::scan(profile_.projects, projectRoots(preferences, options),
                                                   options.staleDays.value_or(preferences.staleProjectDays),
                                                   safety, now));
        case CleanMode::installers:
            return judgedByUse(InstallerFinder::scan(
                profile_.installers, {places.downloads(), places.desktop(), places.documents()}, safety,
                tools_.names(), recentInstallerDays, now));
    }
    return {};
}

Finders::Items Finders::junk(const SafetyGuard& guard, Instant now, const ScanOptions& options,
                             const JunkScanner::Progress& progress) const {
    const Places& places = profile_.places;
    const JunkScanner::Context context = {
        .root = places.root(),
        .home = places.home(),
        .safety = guard,
        .running = options.running ? *options.running : tools_.running(),
        .ownBundleID = Identity::bundleID,
        .hasFullDiskAccess = Permissions::hasFullDiskAccess(places.home(), profile_.fullDiskAccessProbes),
        .now = now,
    };
    std::set<CleanCategory> categories = JunkScanner::systemCategories();
    if (!options.categories.empty())
        std::erase_if(categories, [&](CleanCategory each) { return !options.categories.contains(each); });
    return JunkScanner(profile_.scan, tools_.shell(), tools_.names()).scan(categories, context, progress);
}

Finders::Items Finders::judgedByUse(Items items) const {
    InUse::mark(items, tools_.running());
    return items;
}

std::vector<Finders::Path> Finders::projectRoots(const PreferenceValues& preferences,
                                                 const ScanOptions& options) const {
    if (!options.projectRoots.empty()) return ProjectPurger::mergedRoots(options.projectRoots);
    const Path& home = profile_.places.home();
    std::vector<Path> roots = preferences.projectRootURLs(home);
    const std::vector<Path> discovered = ProjectPurger::discoveredRoots(home);
    roots.insert(roots.end(), discovered.begin(), discovered.end());
    return ProjectPurger::mergedRoots(roots);
}

}  // namespace tavrel
