#include "cleaning/ProjectPurger.h"

#include "cleaning/Scanning.h"
#include "core/Files.h"
#include "core/Text.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace tavrel::ProjectPurger {

namespace {

constexpr int deepest = 6;  // levels below a root
constexpr std::int64_t leastSize = 65536;
constexpr std::size_t mostProbed = 60;  // folders of one root that are looked into for projects

constexpr std::string_view skipped[] = {".git", ".hg", ".svn", "Library", ".Trash"};

/// Folders of a home where nobody keeps code.
constexpr std::string_view notCode[] = {"Library", "Applications", "Pictures", "Movies",
                                        "Music",   "Public",       "Downloads"};

template <typename Range>
bool holds(const Range& range, std::string_view name) {
    return std::find(std::begin(range), std::end(range), name) != std::end(range);
}

const std::vector<Artifact>& table() {
    using enum Risk;
    // clang-format off
    static const std::vector<Artifact> rows = {
        {"node_modules",  {"package.json"},                                        safe,   "npm install restores it"},
        {".next",         {"package.json"},                                        safe,   "Next.js build cache"},
        {".nuxt",         {"package.json"},                                        safe,   "Nuxt build cache"},
        {".svelte-kit",   {"package.json"},                                        safe,   "SvelteKit output"},
        {".turbo",        {"package.json", "turbo.json"},                          safe,   "Turborepo cache"},
        {".parcel-cache", {"package.json"},                                        safe,   "Parcel cache"},
        {".angular",      {"angular.json"},                                        safe,   "Angular cache"},
        {"dist",          {"package.json"},                                        review, "Build output"},
        {"target",        {"Cargo.toml", "pom.xml"},                               safe,   "Rust/Maven build output"},
        {".build",        {"Package.swift"},                                       safe,   "SwiftPM build output"},
        {"Pods",          {"Podfile"},                                             safe,   "pod install restores it"},
        {"build",         {"build.gradle", "build.gradle.kts", "pubspec.yaml"},    safe,   "Gradle/Flutter build output"},
        {".gradle",       {"build.gradle", "build.gradle.kts", "settings.gradle"}, safe,   "Per-project Gradle cache"},
        {".dart_tool",    {"pubspec.yaml"},                                        safe,   "Dart tool cache"},
        {".venv",         {"pyproject.toml", "requirements.txt", "setup.py"},      review, "Virtualenv; recreate it to run the project"},
        {"venv",          {"pyproject.toml", "requirements.txt", "setup.py"},      review, "Virtualenv; recreate it to run the project"},
        {"__pycache__",   {},                                                      safe,   "Python bytecode"},
        {".pytest_cache", {},                                                      safe,   "pytest cache"},
        {".mypy_cache",   {},                                                      safe,   "mypy cache"},
        {".ruff_cache",   {},                                                      safe,   "Ruff cache"},
        {"vendor",        {"composer.json"},                                       safe,   "composer install restores it"},
        {"zig-out",       {"build.zig"},                                           safe,   "Zig build output"},
        {".zig-cache",    {"build.zig"},                                           safe,   "Zig cache"},
        {".output",       {"nuxt.config.ts", "nuxt.config.js", "app.config.ts"},   safe,   "Nuxt/Nitro build output"},
        {".expo",         {"app.json", "app.config.js", "app.config.ts"},          safe,   "Expo cache"},
        {".cache",        {"gatsby-config.js", "gatsby-config.ts"},                safe,   "Gatsby cache"},
        {"coverage",      {"package.json"},                                        safe,   "Test coverage report"},
        {".tox",          {"tox.ini"},                                             safe,   "tox environments"},
        {".nox",          {"noxfile.py"},                                          safe,   "nox environments"},
        {"DerivedData",   {},                                                      safe,   "Xcode build output inside the project"},
    };
    // clang-format on
    return rows;
}

const Artifact* artifactNamed(std::string_view name) {
    const auto& rows = table();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const Artifact& a) { return a.folder == name; });
    return row == rows.end() ? nullptr : &*row;
}

/// When someone last worked in a project: the newest date directly in it, artifacts left out, as a rebuilt
/// one says nothing about work.
std::optional<Instant> projectActivity(const Path& folder, const std::vector<std::string>& names) {
    std::optional<Instant> newest;
    for (const std::string& name : names) {
        if (artifactNamed(name) != nullptr) continue;
        const auto date = Files::modificationDate(folder / name);
        if (date && (!newest || *date > *newest)) newest = date;
    }
    return newest;
}

class Walk {
  public:
    Walk(const SafetyGuard& safety, Instant staleBefore) : safety_(safety), staleBefore_(staleBefore) {}

    void enter(const Path& folder, int depth) {
        if (depth > deepest) return;
        const auto identifier = Files::identifier(folder);
        if (!identifier || !seen_.insert(*identifier).second) return;
        const auto names = Files::names(folder);
        for (const std::string& name : names) {
            if (!Files::isFolder(folder / name)) continue;
            const Artifact* artifact = artifactNamed(name);
            if (artifact != nullptr && isMarked(*artifact, names)) {
                offer(*artifact, folder, names);
            } else if (!holds(skipped, name) && (!name.starts_with('.') || artifact != nullptr)) {
                enter(folder / name, depth + 1);
            }
        }
    }

    std::vector<CleanItem> take() { return std::move(items_); }

  private:
    static bool isMarked(const Artifact& artifact, const std::vector<std::string>& names) {
        const auto& markers = artifact.markers;
        return markers.empty() || std::any_of(markers.begin(), markers.end(),
                                              [&](std::string_view marker) { return holds(names, marker); });
    }

    void offer(const Artifact& artifact, const Path& project, const std::vector<std::string>& names) {
        const Path path = project / artifact.folder;
        if (!Scanning::vet(safety_, path)) return;
        const std::int64_t size = FileSizer::size(path);
        if (size < leastSize) return;
        const bool stale = projectActivity(project, names).value_or(distantPast) < staleBefore_;
        items_.push_back({
            .url = path,
            .size = size,
            .category = CleanCategory::projects,
            .risk = stale ? artifact.risk : Risk::review,
            .note = Scanning::note(Paths::name(project),
                                   Text::localized(stale ? artifact.note : "used recently")),
        });
    }

    const SafetyGuard& safety_;
    Instant staleBefore_;
    std::set<std::pair<dev_t, ino_t>> seen_;
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

std::span<const Artifact> artifacts() {
    return table();
}

std::vector<CleanItem> scan(const std::vector<Path>& roots, int staleDays, const SafetyGuard& safety,
                            Instant now) {
    Walk walk(safety, now - Days(staleDays));
    for (const Path& root : roots) walk.enter(root, 0);
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
