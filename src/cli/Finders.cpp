#include "cli/Finders.h"

#include "cleaning/InstallerFinder.h"
#include "cleaning/JunkScanner.h"
#include "cleaning/ProjectPurger.h"
#include "cleaning/SpecialScanners.h"
#include "cli/Arguments.h"
#include "cli/ExitStatus.h"
#include "cli/Phrase.h"
#include "core/Permissions.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <utility>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace tavrel::cli {

namespace {

using Path = std::filesystem::path;
using Text::localized;

constexpr int longestAge = 36500;  // days; dates further back are no dates of files
constexpr int recentInstallerDays = 7;

/// The name that the windowed program's own caches bear: nobody is offered those.
constexpr const char* ownIdentifier = "com.quennith.tavrel";

Instant now() {
    return std::chrono::system_clock::now();
}

/// A category by its raw value; the error names the text.
std::string refuseUnknownCategory(const std::string& text) {
    if (CleanCategories::fromRawValue(text)) return {};
    return phrase("\"{}\" is no category", text);
}

std::string refuseUnnamedProgram(const std::string& text) {
    const auto equals = text.find('=');
    if (equals != std::string::npos && equals > 0) return {};
    return phrase("\"{}\" is not of the form BUNDLEID=NAME", text);
}

std::set<CleanCategory> asked(const std::vector<std::string>& names) {
    std::set<CleanCategory> categories;
    for (const std::string& name : names) {
        if (const auto category = CleanCategories::fromRawValue(name)) categories.insert(*category);
    }
    return categories;
}

}  // namespace

void FinderOptions::addTo(CLI::App& command) {
    const CLI::Validator known = CLI::IsMember({"system", "ai", "projects", "installers"}).description("");
    const CLI::Validator age = CLI::Range(0, longestAge).description("");
    command.add_option("MODE", mode, localized("system (default), ai, projects or installers"))
        ->check(known)
        ->type_name("");
    command.add_option("--categories", categories, localized("only these groups, separated by commas"))
        ->delimiter(',')
        ->check(refuseUnknownCategory)
        ->allow_extra_args(false)
        ->option_text("A,B");
    command.add_option("--stale-days", staleDays, localized("age of an untouched project (the setting)"))
        ->check(age)
        ->type_name("N");
    command.add_option("--session-age-days", sessionAgeDays, localized("age of an old AI session (90)"))
        ->check(age)
        ->type_name("N");
    Arguments::addList(command, "--project-root", "DIR", projectRoots,
                       localized("look here for projects and nowhere else"));
    Arguments::addList(command, "--running", "BUNDLEID=NAME", running,
                       localized("treat this program as running"))
        ->check(refuseUnnamedProgram);
}

std::string Finder::action(std::string_view mode) {
    if (mode == "system") return "clean";
    if (mode == "projects") return "purge";
    return std::string(mode);
}

SafetyGuard Finder::guard() const {
    if (options_.mode == "system") return session_.guard(session_.profile().scan.volumeTrashes);
    if (options_.mode == "installers") return session_.guard({session_.places().applications()});
    return session_.guard({});
}

Finder::Found Finder::find(Console& console) const {
    Found found{.status = missingRoots(console)};
    console.progress(localized("Scanning…"));
    if (options_.mode == "system") found.items = junk(console);
    if (options_.mode == "ai") found.items = ai();
    if (options_.mode == "projects") found.items = projects();
    if (options_.mode == "installers") found.items = installers();
    console.endProgress();

    if (!options_.categories.empty()) {
        const auto wanted = asked(options_.categories);
        std::erase_if(found.items, [&](const CleanItem& item) { return !wanted.contains(item.category); });
    }
    return found;
}

Finder::Items Finder::junk(Console& console) const {
    const Profile& profile = session_.profile();
    auto running = tools_.running();
    for (const std::string& program : options_.running) {
        const auto equals = program.find('=');
        running.bundleIDs.insert(program.substr(0, equals));
        running.names.insert(program.substr(equals + 1));
    }
    const JunkScanner::Context context = {
        .root = profile.places.root(),
        .home = profile.places.home(),
        .safety = guard(),
        .runningBundleIDs = std::move(running.bundleIDs),
        .runningNames = std::move(running.names),
        .ownBundleID = ownIdentifier,
        .hasFullDiskAccess =
            Permissions::hasFullDiskAccess(profile.places.home(), profile.fullDiskAccessProbes),
        .now = now(),
    };
    std::set<CleanCategory> categories = JunkScanner::systemCategories();
    if (!options_.categories.empty()) {
        const auto wanted = asked(options_.categories);
        std::erase_if(categories, [&](CleanCategory category) { return !wanted.contains(category); });
    }
    return JunkScanner(profile.scan, tools_.shell(), tools_.names())
        .scan(categories, context, [&](CleanCategory category) {
            console.progress(phrase("Scanning… {}", CleanCategories::title(category)));
        });
}

Finder::Items Finder::ai() const {
    return SpecialScanners::ai(session_.places().home(), guard(), options_.sessionAgeDays, now());
}

Finder::Items Finder::projects() const {
    const auto preferred = static_cast<int>(session_.preferences().staleProjectDays);
    return ProjectPurger::scan(projectRoots(), options_.staleDays.value_or(preferred), guard(), now());
}

std::vector<Path> Finder::projectRoots() const {
    std::vector<Path> roots;
    roots.reserve(options_.projectRoots.size());
    for (const std::string& root : options_.projectRoots) roots.push_back(Arguments::workingFolder() / root);
    if (roots.empty()) {
        const Path& home = session_.places().home();
        roots = session_.preferences().projectRootURLs(home);
        const auto discovered = ProjectPurger::discoveredRoots(home);
        roots.insert(roots.end(), discovered.begin(), discovered.end());
    }
    return ProjectPurger::mergedRoots(roots);
}

int Finder::missingRoots(Console& console) const {
    int status = ExitStatus::done;
    for (const std::string& root : options_.projectRoots) {
        if (!Arguments::exists(root, console)) status = ExitStatus::undone;
    }
    return status;
}

Finder::Items Finder::installers() const {
    const Places& places = session_.places();
    return InstallerFinder::scan(session_.profile().installers,
                                 {places.downloads(), places.desktop(), places.documents()}, guard(),
                                 recentInstallerDays, now());
}

}  // namespace tavrel::cli
