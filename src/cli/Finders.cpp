#include "cli/Finders.h"

#include "cli/Arguments.h"
#include "cli/CategoryNames.h"
#include "cli/ExitStatus.h"
#include "cli/Selection.h"
#include "core/Phrase.h"

#include <algorithm>
#include <chrono>
#include <set>

namespace tavrel::cli {

namespace {

using Text::localized;

constexpr int longestAge = 36500;  // days; dates further back are no dates of files

Instant now() {
    return std::chrono::system_clock::now();
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

void FinderOptions::addTo(Syntax& syntax) {
    syntax.value("MODE", "", &mode, localized("system (default), ai, projects or installers"))
        .oneOf({"system", "ai", "projects", "installers"});
    syntax.commaList("--categories", "A,B", categories, localized("only these groups, separated by commas"));
    syntax.number("--stale-days", "N", &staleDays, 0, longestAge,
                  localized("age of an untouched project (the setting)"));
    syntax.number("--session-age-days", "N", &sessionAgeDays, 0, longestAge,
                  localized("age of an old AI session (90)"));
    syntax.list("--project-root", "DIR", projectRoots, localized("look here for projects and nowhere else"));
    syntax.list("--running", "BUNDLEID=NAME", running, localized("treat this program as running"))
        .check(refuseUnnamedProgram);
    syntax.footer(CategoryNames::help());
}

std::optional<std::string> FinderOptions::mistake(const std::string& command) const {
    return CategoryNames::mistake(categories, CleanModes::fromRawValue(mode).value_or(CleanMode::system),
                                  command);
}

RunningApplications FinderOptions::withNamed(RunningApplications applications) const {
    for (const std::string& program : running) {
        const auto equals = program.find('=');
        applications.add(program.substr(0, equals), program.substr(equals + 1));
    }
    return applications;
}

Finder::Finder(const Session& session, const SystemTools& tools, const FinderOptions& options)
    : session_(session),
      tools_(tools),
      options_(options),
      finders_(session.profile(), tools),
      mode_(CleanModes::fromRawValue(options.mode).value_or(CleanMode::system)) {}

SafetyGuard Finder::guard() const {
    return finders_.guard(mode_, session_.preferences());
}

Finder::Found Finder::find(Console& console) const {
    Found found{.status = missingRoots(console)};
    ScanOptions options{.categories = asked(options_.categories),
                        .running = {},
                        .staleDays = options_.staleDays,
                        .sessionAgeDays = options_.sessionAgeDays,
                        .projectRoots = {}};
    if (mode_ == CleanMode::system) options.running = options_.withNamed(tools_.running());
    for (const std::string& root : options_.projectRoots)
        options.projectRoots.push_back(Arguments::workingFolder() / root);

    console.progress(localized("Scanning…"));
    found.items = finders_.find(mode_, session_.preferences(), now(), options, [&](CleanCategory category) {
        console.progress(phrase("Scanning… {}", CleanCategories::title(category)));
    });
    console.endProgress();
    return found;
}

std::map<std::string, CleanMode> Finder::otherModes(const std::vector<std::string>& names) const {
    std::map<std::string, CleanMode> found;
    for (const CleanMode mode : CleanModes::allCases) {
        if (mode == mode_ && options_.categories.empty()) continue;
        const auto items = finders_.find(mode, session_.preferences(), now());
        for (const std::string& name : names) {
            if (!Selection::named(items, {name}, Arguments::workingFolder()).items.empty())
                found.emplace(name, mode);
        }
    }
    return found;
}

int Finder::missingRoots(Console& console) const {
    int status = ExitStatus::done;
    for (const std::string& root : options_.projectRoots) {
        if (!Arguments::exists(root, console)) status = ExitStatus::undone;
    }
    return status;
}

}  // namespace tavrel::cli
