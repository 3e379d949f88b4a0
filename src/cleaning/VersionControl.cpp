#include "cleaning/VersionControl.h"

#include "cleaning/GitIndex.h"
#include "core/Files.h"
#include "core/Paths.h"
#include "core/Text.h"

#include <algorithm>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace tavrel {

namespace fs = std::filesystem;
using Path = fs::path;

namespace {

/// What other systems than git leave in a work tree; what they track is not known here.
constexpr std::string_view foreignMarks[] = {".hg",    ".svn",   ".bzr",      ".jj",      ".sl",
                                             "_darcs", ".pijul", ".fslckout", "_FOSSIL_", "CVS"};

constexpr std::uintmax_t largestText = 1U << 20U;  // bytes of a setting that git keeps in a file

/// The answer of the repository in one folder.
struct Keeps {
    bool everything = false;  // or so it must be taken
    std::unique_ptr<const GitIndex> index = nullptr;
};

bool isThere(const Path& path) {
    return Files::identifier(path).has_value();
}

std::optional<std::string> text(const Path& file) {
    std::error_code failed;
    if (!fs::is_regular_file(file, failed) || fs::file_size(file, failed) > largestText) return std::nullopt;
    auto content = Files::read(file);
    return content ? std::optional(std::move(*content)) : std::nullopt;
}

/// Where the file ".git" of a linked work tree or of a submodule says that its repository is.
std::optional<Path> linkedRepository(const Path& folder) {
    constexpr std::string_view key = "gitdir:";
    const auto content = text(folder / ".git");
    if (!content || !content->starts_with(key)) return std::nullopt;
    return folder / Text::trimmed(std::string_view(*content).substr(key.size()));
}

/// The value of "worktree" on a line of a repository's settings.
std::optional<std::string> workTreeSetting(std::string_view line) {
    if (const auto section = line.rfind(']', line.find('=')); section != std::string_view::npos)
        line.remove_prefix(section + 1);
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    if (Text::lowercased(Text::trimmed(line.substr(0, equals))) != "worktree") return std::nullopt;
    return Text::trimmed(line.substr(equals + 1));
}

/// Whether a setting gives the repository another work tree than `folder`, or may.
bool hasOtherWorkTree(const Path& repository, const Path& folder) {
    for (const char* name : {"config", "config.worktree"}) {
        if (!isThere(repository / name)) continue;
        const auto settings = text(repository / name);
        if (!settings) return true;
        for (std::string_view rest = *settings; !rest.empty();) {
            const std::string_view line = rest.substr(0, rest.find('\n'));
            rest.remove_prefix(std::min(rest.size(), line.size() + 1));
            const auto value = workTreeSetting(line);
            if (!value) continue;
            const bool isPlain = value->find_first_of("\"\\#;") == std::string::npos;
            if (!isPlain || Paths::resolved(repository / *value) != folder) return true;
        }
    }
    return false;
}

/// Whether a folder can be listed and holds no other names than these.
bool holdsOnly(const Path& folder, std::initializer_list<std::string_view> names) {
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        if (std::find(names.begin(), names.end(), entry->path().filename().native()) == names.end())
            return false;
    }
    return !failed;
}

/// Whether nothing was ever committed or added: a repository as "git init" leaves it, or none at all, as git
/// needs a store of objects to see one.
bool isBlank(const Path& repository) {
    if (isThere(repository / "commondir")) return false;
    const Path objects = repository / "objects";
    if (!isThere(objects)) return true;
    return holdsOnly(objects, {"info", "pack"}) && holdsOnly(objects / "info", {}) &&
           holdsOnly(objects / "pack", {});
}

Keeps kept(const Path& folder) {
    constexpr bool everything = true;
    Path repository = folder / ".git";
    if (!isThere(repository)) return {};
    std::error_code failed;
    const bool isOwn = fs::is_directory(repository, failed);
    if (!isOwn) {
        const auto linked = linkedRepository(folder);
        if (!linked || !fs::is_directory(*linked, failed)) return {everything};
        repository = *linked;
    }
    if (!isThere(repository / "index")) return {!isOwn || !isBlank(repository)};
    auto index = GitIndex::read(repository / "index");
    if (!index || hasOtherWorkTree(repository, folder)) return {everything};
    return {false, std::move(index)};
}

}  // namespace

struct VersionControl::Level {
    explicit Level(Path path) : folder(std::move(path)), keeps(kept(folder)) {
        keeps.everything |= std::any_of(std::begin(foreignMarks), std::end(foreignMarks),
                                        [&](std::string_view mark) { return isThere(folder / mark); });
    }

    [[nodiscard]] bool tracks(const Path& path) const {
        if (keeps.everything) return true;
        return keeps.index && keeps.index->holds(path.lexically_relative(folder).native());
    }

    Path folder;
    Keeps keeps;
};

VersionControl::VersionControl() = default;
VersionControl::~VersionControl() = default;

bool VersionControl::isMark(std::string_view name) {
    return name == ".git" ||
           std::find(std::begin(foreignMarks), std::end(foreignMarks), name) != std::end(foreignMarks);
}

bool VersionControl::tracks(const Path& path) {
    // The names that a repository keeps are those without links on the way.
    const Path above = Paths::resolved(Paths::standardized(path).parent_path());
    const Path real = above / Paths::name(path);
    while (!levels_.empty() && !Paths::isInside(above.native(), levels_.back().folder.native()))
        levels_.pop_back();
    if (levels_.empty()) levels_.emplace_back("/");
    for (Path next = levels_.back().folder; next != above;) {
        next /= *above.lexically_relative(next).begin();
        levels_.emplace_back(next);
    }
    if (std::any_of(levels_.begin(), levels_.end(), [&](const Level& level) { return level.tracks(real); }))
        return true;
    const Level own(real);
    return own.keeps.everything || own.keeps.index;
}

}  // namespace tavrel
