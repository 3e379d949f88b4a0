#include "cleaning/ProjectPurger.h"

#include "cleaning/Scanning.h"
#include "cleaning/VersionControl.h"
#include "core/CheckedSum.h"
#include "core/Files.h"
#include "core/Text.h"
#include "disk/TreeWalk.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace tavrel::ProjectPurger {

namespace {

constexpr int maxDepth = 6;  // levels below a root
constexpr std::int64_t minItemSize = 65536;
constexpr int deepestSource = 2;           // folders below a project whose files tell of work
constexpr std::size_t mostSources = 2000;  // entries of a project that are looked at for that
constexpr std::size_t mostProbed = 60;     // folders of one root that are looked into for projects

constexpr std::string_view skipped[] = {".git", ".hg", ".svn", "Library", ".Trash"};

/// Folders of a home where nobody keeps code.
constexpr std::string_view notCode[] = {"Library", "Applications", "Pictures", "Movies",
                                        "Music",   "Public",       "Downloads"};

using Names = std::vector<std::string>;  // ascending

template <typename Range>
bool holds(const Range& range, std::string_view name) {
    return std::find(std::begin(range), std::end(range), name) != std::end(range);
}

Instant dateOf(const Path& path) {
    return Files::modificationDate(path).value_or(distantPast);
}

bool isRow(const Tables& tables, std::string_view name) {
    return std::any_of(tables.artifacts.begin(), tables.artifacts.end(),
                       [&](const Artifact& row) { return row.folder == name; });
}

bool isBeside(std::string_view marker, const Names& names) {
    if (!marker.starts_with('*')) return std::binary_search(names.begin(), names.end(), marker);
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& name) { return name.ends_with(marker.substr(1)); });
}

/// What the folder `name` of `folder`, which holds `names`, is by the tables.
const Artifact* artifactAt(const Tables& tables, const Path& folder, std::string_view name,
                           const Names& names) {
    const auto fits = [&](const Artifact& row) {
        const auto beside = [&](std::string_view marker) { return isBeside(marker, names); };
        const auto within = [&](std::string_view marker) { return Files::exists(folder / name / marker); };
        const auto any = [](const auto& markers, const auto& test) {
            return markers.empty() || std::any_of(markers.begin(), markers.end(), test);
        };
        return row.folder == name && any(row.markers, beside) && any(row.inside, within);
    };
    const auto row = std::find_if(tables.artifacts.begin(), tables.artifacts.end(), fits);
    return row == tables.artifacts.end() ? nullptr : &*row;
}

/// What an artifact holds, from one walk.
class Contents final : public TreeVisitor {
  public:
    Contents(const Artifact& artifact, const Path& folder) : artifact_(artifact) { walkTree(folder, *this); }

    [[nodiscard]] std::int64_t bytes() const { return bytes_; }
    [[nodiscard]] bool hasWorkTree() const { return hasWorkTree_; }
    [[nodiscard]] bool hasOtherFiles() const { return hasOtherFiles_; }

    [[nodiscard]] bool enters(std::string_view name) const override {
        if (VersionControl::isMark(name)) hasWorkTree_ = true;
        return true;
    }
    void take(const FolderEntry& entry, std::uint64_t /*ordinal*/, FolderTotals& totals) const override {
        if (VersionControl::isMark(entry.name)) hasWorkTree_ = true;
        const auto& endings = artifact_.endings;
        if (!endings.empty() && std::none_of(endings.begin(), endings.end(), [&](std::string_view ending) {
                return entry.name.ends_with(ending);
            }))
            hasOtherFiles_ = true;
        if (entry.kind != FolderEntry::Kind::link) totals.bytes = addBytes(totals.bytes, entry.allocated);
    }
    void addFolder(const std::shared_ptr<WalkFolder>& /*folder*/, FolderTotals totals,
                   std::size_t /*pendingChildren*/) override {
        bytes_ = addBytes(bytes_, totals.bytes);
    }

  private:
    const Artifact& artifact_;
    std::int64_t bytes_ = 0;
    // Set by any thread of the walk.
    mutable std::atomic<bool> hasWorkTree_ = false;
    mutable std::atomic<bool> hasOtherFiles_ = false;
};

/// Whether someone worked in a project of late.
enum class Use { none, recent, unknown };

/// By the newest date directly in it, artifacts left out, as a rebuilt one says nothing about work.
Use useByTopLevel(const Tables& tables, const Path& folder, const Names& names, Instant staleBefore) {
    Instant newest = distantPast;
    for (const std::string& name : names) {
        if (!isRow(tables, name)) newest = std::max(newest, dateOf(folder / name));
    }
    return newest < staleBefore ? Use::none : Use::recent;
}

/// By the dates of the source files, folder by folder downwards. Folders do not count themselves: their dates
/// change when a build puts something there, or when a cleaner takes it away.
class SourceDates {
  public:
    SourceDates(const Tables& tables, Instant staleBefore) : tables_(tables), staleBefore_(staleBefore) {}

    Use read(const Path& project) {
        std::vector<Path> folders{project};
        for (int level = 0; level <= deepestSource; ++level) {
            std::vector<Path> below;
            for (const Path& folder : folders) {
                if (const Use use = readOne(folder, below); use != Use::none) return use;
            }
            folders = std::move(below);
        }
        return Use::none;
    }

  private:
    Use readOne(const Path& folder, std::vector<Path>& below) {
        const Names names = Files::names(folder);
        for (const std::string& name : names) {
            if (++seen_ > mostSources) return Use::unknown;
            const Path path = folder / name;
            if (!Files::isFolder(path)) {
                if (isRecent(path)) return Use::recent;
            } else if (name == ".git") {
                // Its index is written anew by a mere look at what has changed.
                if (isRecent(path / "HEAD") || isRecent(path / "logs/HEAD")) return Use::recent;
            } else if (!name.starts_with('.') && artifactAt(tables_, folder, name, names) == nullptr) {
                below.push_back(path);
            }
        }
        return Use::none;
    }
    [[nodiscard]] bool isRecent(const Path& path) const { return dateOf(path) >= staleBefore_; }

    const Tables& tables_;
    Instant staleBefore_;
    std::size_t seen_ = 0;
};

/// The moment before which a project is stale, as far back as moments go.
Instant daysBefore(Instant now, std::int64_t days) {
    const auto whole = std::chrono::floor<Days>(now.time_since_epoch());
    const auto most = whole - std::chrono::ceil<Days>(distantPast.time_since_epoch());
    return days < most.count() ? now - Days(std::max<std::int64_t>(days, 0)) : distantPast;
}

class Walk {
  public:
    Walk(const Tables& tables, const SafetyGuard& safety, Instant staleBefore)
        : tables_(tables), safety_(safety), staleBefore_(staleBefore) {}

    void enter(const Path& folder, const Path& projectAbove, int depth) {
        if (depth > maxDepth) return;
        const auto identifier = Files::identifier(folder);
        if (!identifier || !seen_.insert(*identifier).second) return;
        const Names names = Files::names(folder);
        const Path& project = isProjectFolder(names) ? folder : projectAbove;
        for (const std::string& name : names) {
            if (holds(tables_.strays, name)) offerStray(folder / name);
            if (!Files::isFolder(folder / name)) continue;
            if (const Artifact* artifact = artifactAt(tables_, folder, name, names)) {
                offer(*artifact, project.empty() ? folder : project, folder, names);
            } else if (!holds(skipped, name) && (!name.starts_with('.') || isRow(tables_, name))) {
                enter(folder / name, project, depth + 1);
            }
        }
    }

    std::vector<CleanItem> take() { return std::move(items_); }

  private:
    [[nodiscard]] bool isProjectFolder(const Names& names) const {
        if (tables_.notes == Tables::Notes::folder) return true;
        const auto& rows = tables_.artifacts;
        return std::any_of(names.begin(), names.end(), VersionControl::isMark) ||
               std::any_of(rows.begin(), rows.end(), [&](const Artifact& row) {
                   return std::any_of(row.markers.begin(), row.markers.end(),
                                      [&](std::string_view marker) { return isBeside(marker, names); });
               });
    }

    void offer(const Artifact& artifact, const Path& project, const Path& folder, const Names& names) {
        const Path path = folder / artifact.folder;
        if (!Scanning::vet(safety_, path)) return;
        const Contents contents(artifact, path);
        if (contents.bytes() < minItemSize) return;
        const Use use = useOf(project, folder, names);
        const bool isTracked = contents.hasWorkTree() || versionControl_.tracks(path);

        const bool isReplaced = tables_.notes == Tables::Notes::folder && use == Use::recent;
        std::string note = Paths::name(project);
        const auto add = [&](Text::English words) { note = Scanning::note(note, Text::localized(words)); };
        if (!isReplaced) add(artifact.note);
        if (contents.hasOtherFiles()) add("holds other files too");
        if (use == Use::recent) add("used recently");
        if (use == Use::unknown) add("may be in use");
        if (isTracked) add("under version control");

        const bool isPlain = use == Use::none && !contents.hasOtherFiles() && !isTracked;
        items_.push_back({
            .url = path,
            .size = contents.bytes(),
            .category = CleanCategory::projects,
            .risk = isPlain ? artifact.risk : Risk::review,
            .note = std::move(note),
        });
    }

    /// However small: such files are a nuisance, not a burden.
    void offerStray(const Path& path) {
        if (!Files::isRegular(path) || !Scanning::vet(safety_, path)) return;
        std::string note = Scanning::note(Paths::name(path.parent_path()),
                                          Text::localized("How another system shows this folder"));
        if (versionControl_.tracks(path))
            note = Scanning::note(note, Text::localized("under version control"));
        items_.push_back({.url = path,
                          .size = FileSizer::size(path),
                          .category = CleanCategory::projects,
                          .risk = Risk::review,
                          .note = std::move(note)});
    }

    Use useOf(const Path& project, const Path& folder, const Names& names) {
        if (tables_.activity == Tables::Activity::topLevel)
            return useByTopLevel(tables_, folder, names, staleBefore_);
        const Use use = useBySources(project);
        return use == Use::none && folder != project ? useBySources(folder) : use;
    }
    Use useBySources(const Path& folder) {
        const auto [known, isNew] = uses_.try_emplace(folder.native(), Use::none);
        if (isNew) known->second = SourceDates(tables_, staleBefore_).read(folder);
        return known->second;
    }

    const Tables& tables_;
    const SafetyGuard& safety_;
    Instant staleBefore_;
    VersionControl versionControl_;
    std::set<std::pair<dev_t, ino_t>> seen_;
    std::map<std::string, Use> uses_;  // by folder
    std::vector<CleanItem> items_;
};

std::vector<Path> visibleFolders(const Path& folder) {
    std::vector<Path> found;
    for (const std::string& name : Files::names(folder, Files::Hidden::skip)) {
        if (Files::isFolder(folder / name)) found.push_back(folder / name);
    }
    return found;
}

bool isProject(const Path& folder) {
    return Files::exists(folder / ".git");
}

bool holdsProjects(const Path& folder) {
    if (isProject(folder)) return true;
    auto inside = visibleFolders(folder);
    if (std::any_of(inside.begin(), inside.end(), isProject)) return true;
    if (inside.size() > mostProbed) inside.resize(mostProbed);
    return std::any_of(inside.begin(), inside.end(), [](const Path& child) {
        const auto deeper = visibleFolders(child);
        return std::any_of(deeper.begin(), deeper.end(), isProject);
    });
}

}  // namespace

std::vector<CleanItem> scan(const Tables& tables, const std::vector<Path>& roots, std::int64_t staleDays,
                            const SafetyGuard& safety, Instant now) {
    Walk walk(tables, safety, daysBefore(now, staleDays));
    for (const Path& root : roots) walk.enter(root, {}, 0);
    auto items = walk.take();
    Scanning::sortBySize(items);
    return items;
}

std::vector<Path> discoveredRoots(const Path& home) {
    std::vector<Path> roots;
    for (const Path& folder : visibleFolders(home)) {
        if (!holds(notCode, Paths::name(folder)) && holdsProjects(folder)) roots.push_back(folder);
    }
    return roots;
}

std::vector<Path> mergedRoots(const std::vector<Path>& roots) {
    std::set<std::string> paths;
    for (const Path& root : roots) paths.insert(Paths::resolved(Paths::standardized(root)).native());
    std::vector<Path> merged;
    for (const std::string& path : paths) {
        const bool covered = std::any_of(paths.begin(), paths.end(), [&](const std::string& other) {
            return other != path && Paths::isInside(path, other);
        });
        if (!covered) merged.emplace_back(path);
    }
    return merged;
}

}  // namespace tavrel::ProjectPurger
