#include "cleaning/Scanning.h"
#include "cleaning/SpecialScanners.h"
#include "cleaning/UnusedRuntimes.h"
#include "core/CheckedSum.h"
#include "core/Files.h"
#include "core/Text.h"
#include "platform/root/RootTools.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include <fmt/format.h>

// What belongs to the system and only root can remove: entries of its folders, local snapshots, and what its
// own tools tidy up. Each item is gone for good.

namespace tavrel::SpecialScanners {

using Text::localized;

namespace {

using std::chrono::seconds;
constexpr seconds toolLimit{20};

std::vector<std::string> lines(const std::string& output) {
    std::vector<std::string> found;
    std::istringstream in(output);
    for (std::string line; std::getline(in, line);) {
        line = Text::trimmed(line);
        if (!line.empty()) found.push_back(std::move(line));
    }
    return found;
}

CleanItem systemItem(Path url, std::int64_t size, Risk risk, std::string note) {
    return {.url = std::move(url),
            .size = size,
            .category = CleanCategory::systemData,
            .risk = risk,
            .note = std::move(note),
            .permanent = true,
            .requiresAdmin = true};
}

/// Adds an item that only a tool removes, and that is called what the tool's command line is. What the tool
/// would not take is not offered.
void addToolItem(ToolRun run, std::int64_t size, Risk risk, std::string note, Items& items) {
    const auto command = RootTools::commandLine(run);
    if (!command) return;
    items.push_back(systemItem(*command, size, risk, std::move(note)));
    items.back().rootTool = std::move(run);
}

bool qualifies(const SystemFolder& row, const Path& path, Instant now) {
    if (row.takes == SystemFolder::Takes::files && !Files::isRegular(path)) return false;
    if (!row.skippedPrefix.empty() && Paths::name(path).starts_with(row.skippedPrefix)) return false;
    const auto& extensions = row.extensions;
    if (!extensions.empty() &&
        std::find(extensions.begin(), extensions.end(), Paths::extension(path)) == extensions.end()) {
        return false;
    }
    if (row.minAgeDays == 0) return true;
    return Files::modificationDate(path).value_or(distantFuture) < now - Days(row.minAgeDays);
}

void folderItems(const SystemFolder& row, const SafetyGuard& safety, Instant now, Items& items) {
    for (const std::string& name : Files::names(row.folder)) {
        const Path path = row.folder / name;
        if (!qualifies(row, path, now) || !Scanning::vet(safety, path)) continue;
        const std::int64_t size = FileSizer::size(path);
        if (size >= row.minSize) items.push_back(systemItem(path, size, row.risk, row.note));
    }
}

void snapshotItems(const Path& tool, Shell& shell, Items& items) {
    const CommandResult listing = shell.run(tool, {"listlocalsnapshotdates", "/"}, toolLimit);
    if (listing.status != 0) return;
    for (const std::string& line : lines(listing.output)) {
        if (!RootTools::fits(RootTools::Argument::date, line)) continue;
        addToolItem({RootTool::deleteLocalSnapshot, {line}}, 0, Risk::review,
                    localized("Time Machine local snapshot ") + line + localized("; size known only to APFS"),
                    items);
        items.back().url = "/.tavrel-snapshot/" + line;
    }
}

std::int64_t emptied(const SystemCommand::Empties& files, const Path& folder, int levels, Instant now) {
    std::int64_t sum = 0;
    for (const std::string& name : Files::names(folder)) {
        const Path path = folder / name;
        if (levels > 0 && Files::isFolder(path)) sum = addBytes(sum, emptied(files, path, levels - 1, now));
        if (name.find(files.nameHolds) == std::string::npos || !Files::isRegular(path)) continue;
        const Instant date = Files::modificationDate(path).value_or(distantFuture);
        if (files.minAgeDays == 0 || date < now - Days(files.minAgeDays))
            sum = addBytes(sum, FileSizer::size(path));
    }
    return sum;
}

void commandItems(const SystemCommand& row, Instant now, Items& items) {
    constexpr int levels = 3;
    if (!Files::exists(row.tool)) return;
    std::int64_t size = 0;
    for (const auto& files : row.empties) size = addBytes(size, emptied(files, files.folder, levels, now));
    if (!row.empties.empty() && size < minItemSize) return;
    addToolItem(row.run, size, row.risk, row.note, items);
}

/// Lines of the package tool's list are "name version revision tracking publisher notes".
void revisionItems(const PackageRevisions& packages, Shell& shell, Items& items) {
    static const std::regex disabled(R"(^([a-z0-9_-]+)\s+\S+\s+(x?\d+)\s.*\bdisabled\b.*$)");
    if (!Files::exists(packages.tool)) return;
    const CommandResult listing = shell.run(packages.tool, {"list", "--all"}, toolLimit);
    if (listing.status != 0) return;
    for (const std::string& line : lines(listing.output)) {
        std::smatch match;
        if (line.size() > 500 || !std::regex_match(line, match, disabled)) continue;
        const std::string name = match[1];
        const std::string revision = match[2];
        const Path file = packages.folder / fmt::format("{}_{}.snap", name, revision);
        addToolItem({RootTool::removeSnapRevision, {name, revision}}, FileSizer::size(file), Risk::review,
                    Scanning::note(name, localized("disabled revision; without it there is no way back")),
                    items);
    }
}

}  // namespace

Items systemData(const SystemPlaces& places, Shell& shell, const SafetyGuard& safety, Instant now) {
    Items items;
    for (const SystemFolder& row : places.folders) folderItems(row, safety, now, items);
    if (places.snapshotTool) snapshotItems(*places.snapshotTool, shell, items);
    for (const SystemCommand& row : places.commands) commandItems(row, now, items);
    if (places.packages) revisionItems(*places.packages, shell, items);
    if (places.runtimes) {
        for (CleanItem& item : runtimes(*places.runtimes)) items.push_back(std::move(item));
    }
    return items;
}

Items runtimes(const SharedRuntimes& shared) {
    Items items;
    if (!Files::exists(shared.tool)) return items;
    for (const std::string& runtime : unusedRuntimes(shared.installation, shared.others)) {
        const std::string note =
            Scanning::note(runtime, localized("Flatpak runtime that no application uses; size unknown"));
        const std::string name = "runtime/" + runtime;
        if (shared.owner == SharedRuntimes::Owner::system) {
            addToolItem({RootTool::uninstallRuntime, {name}}, 0, Risk::review, note, items);
            continue;
        }
        // The tool would look in the home of who runs it.
        items.push_back({.url = shared.tool.native() + " uninstall --user --noninteractive " + name,
                         .category = CleanCategory::packageManagers,
                         .risk = Risk::review,
                         .note = note,
                         .permanent = true,
                         .userCommand = {"/usr/bin/env", "FLATPAK_USER_DIR=" + shared.installation.native(),
                                         shared.tool, "uninstall", "--user", "--noninteractive", name}});
    }
    return items;
}

}  // namespace tavrel::SpecialScanners
