#include "cleaning/JunkScanner.h"

#include "cleaning/InUse.h"
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

/// The text of a row's path as one path; a pattern stays one.
Path resolve(std::string_view path, const JunkScanner::Context& context) {
    if (path.starts_with("~/")) return context.home / path.substr(2);
    return context.root / path.substr(path.starts_with('/') ? 1 : 0);
}

std::vector<Path> foldersOf(std::string_view path, const JunkScanner::Context& context) {
    if (path.find('*') == std::string_view::npos) return {resolve(path, context)};
    if (path.starts_with("~/")) return Files::matching(context.home, path.substr(2));
    return Files::matching(context.root, path);
}

std::vector<Path> entries(const Path& folder, const std::vector<std::string>& besides) {
    std::vector<Path> found;
    for (const auto& name : Files::names(folder)) {
        if (std::find(besides.begin(), besides.end(), name) == besides.end()) found.push_back(folder / name);
    }
    return found;
}

std::vector<Path> candidates(const CleanRule& rule, const Path& folder) {
    using Kind = CleanRule::Mode::Kind;
    std::vector<Path> found;
    const auto stays = [&](const std::string& name) { return Files::identifier(folder / name).has_value(); };
    switch (rule.mode.kind) {
        case Kind::whole:
            if (std::any_of(rule.keeps.begin(), rule.keeps.end(), stays)) return entries(folder, rule.keeps);
            if (Files::exists(folder)) found.push_back(folder);
            break;
        case Kind::children:
            return entries(folder, rule.keeps);
        case Kind::files:
            for (const auto& name : Files::names(folder, Files::Hidden::skip)) {
                if (rule.mode.extensions.contains(Text::lowercased(Paths::extension(name))))
                    found.push_back(folder / name);
            }
            break;
    }
    return found;
}

/// What marks a folder as a cache whose loss costs nothing but time: see bford.info/cachedir.
bool hasCacheTag(const Path& folder) {
    return Files::beginsWith(folder / "CACHEDIR.TAG", "Signature: 8a477f597d28d172789f06886806bc55");
}

/// One pass over the rules of the catalog.
class RuleScan {
  public:
    RuleScan(const JunkScanner::Tables& tables, const JunkScanner::Context& context,
             const ApplicationNames& names)
        : tables_(tables), context_(context), names_(names) {
        for (const CleanRule& rule : tables.rules) {
            ruleRoots_.push_back(Paths::standardized(resolve(rule.path, context)).native());
        }
    }

    void enter(const CleanRule& rule, Items& items) {
        for (const Path& folder : foldersOf(rule.path, context_)) {
            for (const Path& candidate : candidates(rule, folder)) take(rule, candidate, items);
        }
    }

  private:
    void take(const CleanRule& rule, const Path& candidate, Items& items) {
        const std::string path = Paths::standardized(candidate).native();
        if (seen_.contains(path) || !qualifies(rule, candidate, path)) return;
        const Instant own = Files::modificationDate(candidate).value_or(distantPast);
        if (isWithin(rule.minAgeDays, own)) return;
        FileSizer::Measure found = FileSizer::measure(candidate);
        if (tables_.manner.age == Manner::Age::ownDate) found.newest = own;
        if (isWithin(rule.minAgeDays, found.newest)) return;
        if (found.size < rule.minItemSize && rule.category != CleanCategory::trash) return;
        seen_.insert(path);
        items.push_back(item(rule, candidate, found));
    }

    bool qualifies(const CleanRule& rule, const Path& candidate, const std::string& path) const {
        if (rule.mode.kind == CleanRule::Mode::Kind::children && belongsToAnotherRule(path)) return false;
        if (context_.ownBundleID == Paths::name(candidate)) return false;
        if (!rule.magic.empty() && !Files::beginsWith(candidate, rule.magic)) return false;
        return Scanning::vet(context_.safety, candidate);
    }

    /// A child that is the root of a rule, or holds one, is left to that rule, also when its category was not
    /// asked for.
    bool belongsToAnotherRule(const std::string& path) const {
        return std::any_of(ruleRoots_.begin(), ruleRoots_.end(),
                           [&](const std::string& root) { return Paths::isInside(root, path); });
    }

    [[nodiscard]] bool isWithin(int days, Instant date) const {
        return days > 0 && date > context_.now - Days(days);
    }

    /// The folders in which the owners of a rule keep their locks.
    std::vector<Path> profilesOf(const CleanRule& rule, const std::string& name) const {
        std::vector<Path> profiles;
        for (const std::string& text : rule.profiles) {
            const Path path = resolve(text, context_);
            profiles.push_back(path.filename() == "*" ? path.parent_path() / name : path);
        }
        return profiles;
    }

    [[nodiscard]] bool adds() const { return tables_.manner.remarks == Manner::Remarks::addToNote; }

    void review(CleanItem& made, Text::English reason) const {
        made.risk = Risk::review;
        made.note = adds() ? Scanning::note(made.note, Text::localized(reason)) : Text::localized(reason);
    }

    CleanItem item(const CleanRule& rule, const Path& candidate, const FileSizer::Measure& found) const {
        const std::string name = Paths::name(candidate);
        CleanItem made{
            .url = candidate,
            .size = found.size,
            .category = rule.category,
            .risk = rule.risk,
            .note = rule.note,
            .permanent = rule.permanent,
            .toTrash = rule.toTrash,
            .occupants = {.identifiers = rule.owners, .names = {}, .profiles = profilesOf(rule, name)}};
        made.occupants.identifiers.push_back(name);
        if (rule.onlyOfInstalled && !names_.isInstalled(name) && !hasCacheTag(candidate)) {
            made.risk = Risk::review;
            made.note = Text::localized("Kept by a program that is not known here; look before it goes");
        }
        if (isWithin(rule.reviewWithinDays, found.newest)) {
            review(made, "changed within the last day");
        }
        if (rule.category == CleanCategory::userCaches && !tables_.systemCachePrefix.empty() &&
            name.starts_with(tables_.systemCachePrefix)) {
            review(made, "macOS system cache; rebuilt automatically");
        }
        if (InUse::isInUse(made, context_.running)) {
            review(made,
                   adds() ? "running; quit it first" : "App is running; quit it first for a clean result");
        }
        return made;
    }

    const JunkScanner::Tables& tables_;
    const JunkScanner::Context& context_;
    const ApplicationNames& names_;
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
                        .risk = stays ? Risk::review : table.olderRisk,
                        .note = stays ? table.newestNote : table.olderNote,
                        .occupants = version->occupants};
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

    RuleScan rules(tables_, context, names_);
    for (const CleanRule& rule : tables_.rules) {
        if (!categories.contains(rule.category)) continue;
        progress(rule.category);
        rules.enter(rule, items);
    }
    const SpecialScanners::Search search{context.home, safety, context.running, tables_.manner};
    if (categories.contains(appData)) {
        progress(appData);
        append(items, SpecialScanners::appWebCaches(tables_.webCaches, search));
    }
    if (categories.contains(userCaches) && context.hasFullDiskAccess)
        append(items, SpecialScanners::containerCaches(tables_.containers, search, names_));
    if (categories.contains(packageManagers) && tables_.userRuntimes)
        append(items, SpecialScanners::runtimes(*tables_.userRuntimes));
    if (categories.contains(editors))
        append(items, SpecialScanners::oldEditorExtensions(context.home, safety));
    if (categories.contains(trash)) {
        SpecialScanners::VolumeTrashes trashes = tables_.volumeTrashes();
        const SafetyGuard admitsVolumes = safety.withRoots(trashes);
        if (tables_.homeTrash) trashes.push_back(*tables_.homeTrash);
        append(items, SpecialScanners::trashed(trashes, tables_.trashReviewDays, admitsVolumes, context.now));
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
