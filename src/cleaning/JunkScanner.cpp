#include "cleaning/JunkScanner.h"

#include "cleaning/Scanning.h"
#include "core/Files.h"
#include "core/Paths.h"
#include "core/Text.h"
#include "disk/FileSizer.h"

#include <algorithm>
#include <map>
#include <unordered_set>
#include <utility>

namespace tavrel {

namespace {

using Path = std::filesystem::path;
using Items = std::vector<CleanItem>;
using SpecialScanners::leastSize;

Path resolve(const CleanRule& rule, const JunkScanner::Context& context) {
    const std::string_view path = rule.path;
    if (path.starts_with("~/")) return context.home / path.substr(2);
    return context.root / path.substr(path.starts_with('/') ? 1 : 0);
}

std::vector<Path> candidates(const CleanRule& rule, const Path& folder) {
    using Kind = CleanRule::Mode::Kind;
    std::vector<Path> found;
    switch (rule.mode.kind) {
        case Kind::whole:
            if (Files::exists(folder)) found.push_back(folder);
            break;
        case Kind::children:
            for (const auto& name : Files::names(folder)) found.push_back(folder / name);
            break;
        case Kind::files:
            for (const auto& name : Files::names(folder, Files::Hidden::skip)) {
                if (rule.mode.extensions.contains(Text::lowercased(Paths::extension(name))))
                    found.push_back(folder / name);
            }
            break;
    }
    return found;
}

bool modifiedWithin(const Path& path, int days, Instant now) {
    const auto date = Files::modificationDate(path);
    return date && *date > now - Days(days);
}

/// One pass over the rules of the catalog.
class RuleScan {
  public:
    RuleScan(const JunkScanner::Tables& tables, const JunkScanner::Context& context)
        : tables_(tables), context_(context) {
        for (const CleanRule& rule : tables.rules) {
            ruleRoots_.push_back(Paths::standardized(resolve(rule, context)).native());
        }
    }

    void enter(const CleanRule& rule, Items& items) {
        for (const Path& candidate : candidates(rule, resolve(rule, context_))) {
            const std::string path = Paths::standardized(candidate).native();
            if (seen_.contains(path) || !qualifies(rule, candidate, path)) continue;
            const std::int64_t size = FileSizer::size(candidate);
            if (size < leastSize && rule.category != CleanCategory::trash) continue;
            seen_.insert(path);
            items.push_back(item(rule, candidate, size));
        }
    }

  private:
    bool qualifies(const CleanRule& rule, const Path& candidate, const std::string& path) const {
        if (rule.mode.kind == CleanRule::Mode::Kind::children && belongsToAnotherRule(path)) return false;
        if (context_.ownBundleID == Paths::name(candidate)) return false;
        if (!Scanning::vet(context_.safety, candidate)) return false;
        return rule.minAgeDays < 1 || !modifiedWithin(candidate, rule.minAgeDays, context_.now);
    }

    /// A child that is the root of a rule, or holds one, is left to that rule, also when its category was not
    /// asked for.
    bool belongsToAnotherRule(const std::string& path) const {
        return std::any_of(ruleRoots_.begin(), ruleRoots_.end(),
                           [&](const std::string& root) { return Paths::isInside(root, path); });
    }

    CleanItem item(const CleanRule& rule, const Path& candidate, std::int64_t size) const {
        CleanItem made{.url = candidate,
                       .size = size,
                       .category = rule.category,
                       .risk = rule.risk,
                       .note = rule.note,
                       .permanent = rule.permanent};
        const std::string name = Paths::name(candidate);
        const auto review = [&](Text::English note) {
            made.risk = Risk::review;
            made.note = Text::localized(note);
        };
        if (rule.reviewWithinDays > 0 && modifiedWithin(candidate, rule.reviewWithinDays, context_.now)) {
            review("Changed within the last day; a program may be using it");
        }
        if (rule.category == CleanCategory::userCaches && !tables_.systemCachePrefix.empty() &&
            name.starts_with(tables_.systemCachePrefix)) {
            review("macOS system cache; rebuilt automatically");
        }
        const auto& running = context_.runningBundleIDs;
        if (running.contains(name) || (!rule.owner.empty() && running.contains(rule.owner))) {
            review("App is running; quit it first for a clean result");
        }
        return made;
    }

    const JunkScanner::Tables& tables_;
    const JunkScanner::Context& context_;
    std::vector<std::string> ruleRoots_;
    std::unordered_set<std::string> seen_;
};

/// What tells which entries of a versioned folder are versions of one thing.
std::string versionKey(JunkScanner::Tables::Versioned::Key key, const std::string& name) {
    using Key = JunkScanner::Tables::Versioned::Key;
    const auto begin = key == Key::firstWord ? name.find_first_not_of(' ') : 0;
    if (begin == std::string::npos) return name;
    const auto end = key == Key::firstWord ? name.find(' ', begin) : name.find_first_of("0123456789");
    return name.substr(begin, end == std::string::npos ? end : end - begin);
}

/// Judges the entries of versioned folders anew: the newest of each kind is for review, the others are safe,
/// so that selecting what is safe leaves one copy of each.
void retireOldVersions(const JunkScanner::Tables::Versioned& table, Items& items) {
    std::map<std::string, std::vector<CleanItem*>> groups;
    for (CleanItem& item : items) {
        const std::string parent = Paths::name(item.url.parent_path());
        if (!parent.ends_with(table.parentSuffix)) continue;
        groups[parent + "/" + versionKey(table.key, Paths::name(item.url))].push_back(&item);
    }
    const auto date = [](const CleanItem* item) {
        return Files::modificationDate(item->url).value_or(distantPast);
    };
    for (auto& [key, versions] : groups) {
        // max_element keeps the first of equals.
        CleanItem* newest = *std::max_element(versions.begin(), versions.end(),
                                              [&](auto* a, auto* b) { return date(a) < date(b); });
        for (CleanItem* version : versions) {
            const bool stays = version == newest;
            *version = {.url = version->url,
                        .size = version->size,
                        .category = version->category,
                        .risk = stays ? Risk::review : Risk::safe,
                        .note = stays ? table.newestNote : table.olderNote};
        }
    }
}

void append(Items& items, Items more) {
    items.insert(items.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

/// The first item of a path stays, so a rule's beats a special scanner's.
void dropRepeats(Items& items) {
    std::unordered_set<std::string> kept;
    std::erase_if(items, [&](const CleanItem& item) { return !kept.insert(item.id()).second; });
}

}  // namespace

JunkScanner::JunkScanner(Tables tables, Shell& shell, const ApplicationNames& names)
    : tables_(std::move(tables)), shell_(shell), names_(names) {}

const std::set<CleanCategory>& JunkScanner::systemCategories() {
    using enum CleanCategory;
    static const std::set<CleanCategory> categories = {
        systemData, userCaches, logs, xcode,     packageManagers, devCaches, editors,
        appData,    browsers,   mail, downloads, iosBackups,      trash};
    return categories;
}

std::vector<CleanItem> JunkScanner::scan(const std::set<CleanCategory>& categories, const Context& context,
                                         const Progress& progress) const {
    using enum CleanCategory;
    const SafetyGuard& safety = context.safety;
    Items items;

    RuleScan rules(tables_, context);
    for (const CleanRule& rule : tables_.rules) {
        if (!categories.contains(rule.category)) continue;
        progress(rule.category);
        rules.enter(rule, items);
    }
    if (categories.contains(appData)) {
        progress(appData);
        append(items,
               SpecialScanners::appWebCaches(tables_.webCaches, context.home, context.runningNames, safety));
    }
    if (categories.contains(userCaches)) {
        append(items,
               SpecialScanners::containerCaches(tables_.containers, context.home, context.runningBundleIDs,
                                                context.hasFullDiskAccess, names_, safety));
    }
    if (categories.contains(editors))
        append(items, SpecialScanners::oldEditorExtensions(context.home, safety));
    if (categories.contains(trash)) {
        const SafetyGuard admitsVolumes = safety.withRoots(tables_.volumeTrashes);
        append(items, SpecialScanners::volumeTrashes(tables_.volumeTrashes, admitsVolumes));
    }
    if (categories.contains(systemData)) {
        progress(systemData);
        const SafetyGuard admitsSystem = safety.withRoots(tables_.system.roots);
        append(items, SpecialScanners::systemData(tables_.system, shell_, admitsSystem, context.now));
    }

    dropRepeats(items);
    for (const Tables::Versioned& table : tables_.versioned) retireOldVersions(table, items);
    Scanning::sortBySize(items);
    return items;
}

}  // namespace tavrel
