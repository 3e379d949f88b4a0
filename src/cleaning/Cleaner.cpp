#include "cleaning/Cleaner.h"

#include "cleaning/History.h"
#include "cleaning/InUse.h"
#include "cleaning/Removal.h"
#include "core/CheckedSum.h"
#include "core/Files.h"
#include "core/Paths.h"
#include "core/Text.h"
#include "disk/FileSizer.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace tavrel {

namespace {

constexpr std::chrono::seconds administratorLimit{600};
constexpr std::chrono::seconds commandLimit{600};

void noteRemoved(CleanReport& report, const CleanItem& item) {
    report.removed.push_back(item);
    report.freed = addBytes(report.freed, item.size);
}

void noteSkipped(CleanReport& report, const CleanItem& item, std::string reason) {
    report.skipped.push_back({item, std::move(reason)});
}

History::Entry entryFor(const CleanReport& report, const std::string& action, Instant now) {
    History::Entry entry{.id = History::newIdentifier(),
                         .date = now,
                         .action = action,
                         .count = static_cast<std::int64_t>(report.removed.size()),
                         .bytes = report.freed,
                         .paths = {},
                         .trashed = report.inTrash};
    std::transform(report.removed.begin(), report.removed.end(), std::back_inserter(entry.paths),
                   [](const CleanItem& item) { return Text::encodePath(item.url.native()); });
    return entry;
}

}  // namespace

const std::set<CleanCategory>& Cleaner::direct() {
    using enum CleanCategory;
    static const std::set<CleanCategory> categories = {
        userCaches, logs,     xcode, packageManagers, devCaches, editors,
        appData,    browsers, mail,  downloads,       projects,  aiCaches,
    };
    return categories;
}

class Cleaner::Watch {
  public:
    explicit Watch(const Tools& tools) : tools_(tools) {}

    [[nodiscard]] bool isInUse(const CleanItem& item) {
        if (!tools_.running) return false;
        const Instant now = tools_.now();
        if (!running_ || now < read_ || now - read_ >= freshness) {
            running_ = tools_.running();
            read_ = now;
        }
        return InUse::isInUse(item, *running_);
    }

  private:
    static constexpr std::chrono::seconds freshness{1};

    const Tools& tools_;
    std::optional<RunningApplications> running_;
    Instant read_;
};

CleanReport Cleaner::clean(const std::vector<CleanItem>& items, const std::string& action,
                           const SafetyGuard& safety, Options options, const Progress& progress) const {
    CleanReport report{.dryRun = options.dryRun};
    std::vector<CleanItem> ordinary;
    std::vector<CleanItem> forRoot;
    for (const auto& item : items) (item.requiresAdmin ? forRoot : ordinary).push_back(item);

    Watch watch(tools_);
    for (std::size_t i = 0; i < ordinary.size(); ++i) {
        cleanOne(ordinary[i], safety, options, watch, report);
        if (progress) progress(static_cast<double>(i + 1) / static_cast<double>(items.size()));
    }
    if (!forRoot.empty()) cleanWithAdmin(forRoot, safety, options, report);
    if (!options.dryRun && !report.removed.empty()) {
        // A history that cannot be written does not undo the clean.
        static_cast<void>(History::record(tools_.history, entryFor(report, action, tools_.now())));
    }
    return report;
}

Cleaner::Disposal Cleaner::disposal(const CleanItem& item, Options options) {
    if (item.permanent) return Disposal::erase;
    if (options.alwaysTrash || item.toTrash || item.risk != Risk::safe) return Disposal::trash;
    return direct().contains(item.category) ? Disposal::erase : Disposal::trash;
}

void Cleaner::cleanOne(const CleanItem& item, const SafetyGuard& safety, Options options, Watch& watch,
                       CleanReport& report) const {
    if (!item.userCommand.empty()) return runCommand(item, options, report);
    // Seen first and vetted second: whatever is swapped in after the vetting is then another thing than was
    // seen.
    const auto seen = Removal::identify(tools_.access, item.url);
    const auto verdict = safety.check(item.url);
    if (!verdict.isAllowed()) return noteSkipped(report, item, verdict.reason());
    if (!seen) {
        if (!Removal::isGone(seen.error())) noteSkipped(report, item, Removal::refusal(seen.error()).reason);
        return;
    }
    if (item.isNoLink && seen->isLink())
        return noteSkipped(report, item, Removal::refusal(Removal::changed).reason);

    if (watch.isInUse(item)) return noteSkipped(report, item, InUse::refusal());

    const auto how = disposal(item, options);
    if (!options.dryRun) {
        const auto outcome = dispose(Removal::target(item.url, verdict, *seen), how);
        if (!outcome) return noteSkipped(report, item, outcome.error().reason);
        if (how == Disposal::trash) {
            report.inTrash.push_back(
                {Text::encodePath(item.url.native()), Text::encodePath(outcome->place.native()), item.size});
        }
    }
    if (how == Disposal::trash) report.trashed = addBytes(report.trashed, item.size);
    noteRemoved(report, item);
}

void Cleaner::runCommand(const CleanItem& item, Options options, CleanReport& report) const {
    if (tools_.shell == nullptr)
        return noteSkipped(report, item, Text::localized("No command can be run here"));
    if (!options.dryRun) {
        const auto& words = item.userCommand;
        const auto result = tools_.shell->run(words.front(), {words.begin() + 1, words.end()}, commandLimit);
        if (result.status != 0) return noteSkipped(report, item, Text::trimmed(result.output));
    }
    noteRemoved(report, item);
}

Trash::Expected<Trash::Trashed> Cleaner::dispose(const Removal::Target& target, Disposal how) const {
    if (how == Disposal::trash) return tools_.trash.trash(target);
    return Removal::erase(tools_.access, target).map([&] {
        tools_.trash.erased(target.path());
        return Trash::Trashed{};
    });
}

tl::expected<std::optional<RootStep>, std::string> Cleaner::rootStep(const CleanItem& item,
                                                                     const SafetyGuard& guard) const {
    // A tool names no path that could be judged. What it may be told is in the table of tools.
    if (item.rootTool) return *item.rootTool;
    const auto seen = Removal::identify(tools_.access, item.url);
    const auto verdict = guard.check(item.url);
    if (!verdict.isAllowed()) return tl::unexpected(verdict.reason());
    if (!seen && Removal::isGone(seen.error())) return std::nullopt;
    if (!seen) return tl::unexpected(Removal::refusal(seen.error()).reason);
    const auto path = Paths::standardized(item.url);
    if (!tools_.administrator.mayRemove(path)) {
        return tl::unexpected(
            Text::localized("Others than the administrator can change the folder it is in"));
    }
    return EntryRemoval{path, *seen};
}

void Cleaner::cleanWithAdmin(const std::vector<CleanItem>& items, const SafetyGuard& safety, Options options,
                             CleanReport& report) const {
    const auto guard = safety.withRoots(tools_.systemRoots);
    std::vector<CleanItem> accepted;
    std::vector<RootStep> steps;
    for (const auto& item : items) {
        auto step = rootStep(item, guard);
        if (!step) {
            noteSkipped(report, item, std::move(step.error()));
        } else if (*step) {
            steps.push_back(std::move(**step));
            accepted.push_back(item);
        }
    }
    if (accepted.empty()) return;

    const auto outcome = options.dryRun ? std::vector<StepResult>(steps.size())
                                        : tools_.administrator.run(steps, administratorLimit);
    for (std::size_t i = 0; i < accepted.size(); ++i) {
        if (!outcome) {
            noteSkipped(report, accepted[i], outcome.error().message);
        } else if (const StepResult& result = outcome->at(i); result.isDone()) {
            noteRemoved(report, accepted[i]);
        } else {
            noteSkipped(report, accepted[i], result.reason());
        }
    }
}

std::int64_t Cleaner::emptyTrash(const FolderAccess& access, Trash& trash) {
    const auto root = trash.home();
    const auto contents = trash.contents();
    const auto way = Paths::components(contents.lexically_relative(root).native());

    std::int64_t freed = 0;
    for (const auto& name : Files::names(contents)) {
        const auto path = contents / name;
        const auto seen = Removal::identify(access, path);
        if (!seen) continue;
        const auto size = FileSizer::size(path);
        Removal::Target target{.root = root, .components = way, .seen = *seen};
        target.components.push_back(name);
        if (!Removal::erase(access, target)) continue;
        trash.erased(path);
        freed = addBytes(freed, size);
    }
    return freed;
}

}  // namespace tavrel
