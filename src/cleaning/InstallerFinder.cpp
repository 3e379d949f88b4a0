#include "cleaning/InstallerFinder.h"

#include "cleaning/Scanning.h"
#include "core/Files.h"
#include "core/Text.h"

#include <algorithm>
#include <fnmatch.h>
#include <map>

namespace tavrel::InstallerFinder {

using Text::localized;

namespace {

constexpr int maxDepth = 2;  // a root's entries and those of its sub-folders

CleanItem installer(const Path& path, Risk risk, std::string note) {
    return {.url = path,
            .size = FileSizer::size(path),
            .category = CleanCategory::installers,
            .risk = risk,
            .note = std::move(note)};
}

bool isInInbox(const Tables& tables, const Path& path) {
    return std::any_of(tables.inboxes.begin(), tables.inboxes.end(),
                       [&](const Path& inbox) { return Paths::isInside(path.native(), inbox.native()); });
}

bool isToolchain(const Tables& tables, const Path& path) {
    const std::string name = Text::lowercased(Paths::name(path));
    const auto fits = [&](const std::string& pattern) {
        return ::fnmatch(pattern.c_str(), name.c_str(), 0) == 0;
    };
    return isInInbox(tables, path) && std::any_of(tables.toolchains.begin(), tables.toolchains.end(), fits);
}

/// Every visible installer below `folder`. An installer can be a folder, and is never searched; neither is a
/// folder that people see as one file.
void search(const Tables& tables, const Path& folder, int level, std::vector<Path>& found) {
    if (level > maxDepth) return;
    for (const std::string& name : Files::names(folder, Files::Hidden::skip)) {
        const Path path = folder / name;
        const std::string extension = Text::lowercased(Paths::extension(path));
        if (tables.extensions.contains(extension) || isToolchain(tables, path)) {
            found.push_back(path);
        } else if (!tables.packages.contains(extension) && Files::isFolder(path)) {
            search(tables, path, level + 1, found);
        }
    }
}

struct Judgement {
    Risk risk;
    std::string note;
};

/// What a found installer is, by its name, its place and its age.
Judgement judge(const Tables& tables, const Path& path, bool isRecent) {
    const std::string extension = Text::lowercased(Paths::extension(path));
    if (tables.programs.contains(extension))
        return {Risk::review,
                localized("Application in one file, no installer; without it the application is gone")};
    if (tables.alsoWorks.contains(extension) && !isInInbox(tables, path))
        return {Risk::review, localized("Not among your downloads; it may be a work of your own")};
    if (isToolchain(tables, path))
        return {Risk::review, localized("Archive of a tool; needed only to unpack it again")};
    if (isRecent) return {Risk::review, localized("Downloaded recently")};
    return {Risk::safe, localized("Installer; the app it installed doesn't need it")};
}

}  // namespace

std::vector<CleanItem> scan(const Tables& tables, const std::vector<Path>& roots, const SafetyGuard& safety,
                            const ApplicationNames& applications, int recentDays, Instant now) {
    std::map<std::string, CleanItem> byPath;
    std::vector<Path> found;
    for (const Path& root : roots) search(tables, root, 1, found);
    for (const Path& path : found) {
        if (!Scanning::vet(safety, path) || applications.isStarted(path)) continue;
        const bool isRecent = Files::modificationDate(path).value_or(distantPast) > now - Days(recentDays);
        auto [risk, note] = judge(tables, path, isRecent);
        byPath.insert_or_assign(Paths::standardized(path).native(), installer(path, risk, std::move(note)));
    }
    for (const Path& path : macOSInstallers(tables.applications, safety)) {
        byPath.insert_or_assign(
            Paths::standardized(path).native(),
            installer(path, Risk::safe,
                      localized("macOS installer app; download it again from the App Store if ever needed")));
    }

    std::vector<CleanItem> items;
    items.reserve(byPath.size());
    for (auto& [path, item] : byPath) items.push_back(std::move(item));
    Scanning::sortBySize(items);
    return items;
}

std::vector<Path> macOSInstallers(const Path& applications, const SafetyGuard& safety) {
    std::vector<Path> found;
    for (const std::string& name : Files::names(applications)) {
        if (!name.starts_with("Install macOS")) continue;
        if (Scanning::vet(safety, applications / name)) found.push_back(applications / name);
    }
    return found;
}

}  // namespace tavrel::InstallerFinder
