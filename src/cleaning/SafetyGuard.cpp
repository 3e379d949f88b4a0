#include "cleaning/SafetyGuard.h"

#include "core/Files.h"
#include "core/Paths.h"

#include <algorithm>

namespace tavrel {

namespace {

// Final words for the user, shown beside a skipped item; not localised.
constexpr std::string_view notAbsolute = "not an absolute file path";
constexpr std::string_view outside = "outside the folders Tavrel cleans";
constexpr std::string_view wholeDisk = "the home folder is the whole disk";
constexpr std::string_view throughLink = "reached through a symbolic link";
constexpr std::string_view systemFolder = "system folder";
constexpr std::string_view personalData = "personal data";
constexpr std::string_view barred = "protected in Settings";

std::string_view below(std::string_view path, std::string_view root) {
    if (path == root) return {};
    path.remove_prefix(root.size());
    if (path.starts_with('/')) path.remove_prefix(1);
    return path;
}

}  // namespace

SafetyGuard::Verdict SafetyGuard::check(const Path& url) const {
    const Path target = Paths::standardized(url);
    const std::string& path = target.native();
    if (!path.starts_with('/') || path.find("/../") != std::string::npos)
        return Verdict::refused(notAbsolute);
    // The lists know what a home holds dear, and nothing of a system.
    if (home == "/") return Verdict::refused(wholeDisk);

    std::vector<Path> roots{home};
    for (const auto& extra : extraRoots) roots.push_back(Paths::standardized(extra));
    // A root that is no absolute path admits nothing: the empty one would hold every path.
    const auto root = std::find_if(roots.begin(), roots.end(), [&](const Path& r) {
        return r.is_absolute() && Paths::isInside(path, r.native());
    });
    if (root == roots.end()) return Verdict::refused(outside);
    if (hasSymlinkedAncestor(target, *root)) return Verdict::refused(throughLink);

    if (*root != home) {
        // An extra root may be emptied, never removed.
        if (target == *root) return Verdict::refused(systemFolder);
    } else {
        const std::string_view relative = below(path, home.native());
        const auto& stay = lists.neverRemove;
        if (std::find(stay.begin(), stay.end(), relative) != stay.end())
            return Verdict::refused(systemFolder);
        if (isPersonal(relative)) return Verdict::refused(personalData);
    }
    if (isBarred(path)) return Verdict::refused(barred);
    return Verdict::allowed(*root);
}

SafetyGuard SafetyGuard::withRoots(std::vector<Path> roots) const {
    return {Paths::standardized(home), protectedPaths, std::move(roots), lists};
}

// Neither the thing itself nor the root is asked: a link as the item goes without what it points to, and a
// root is resolved when the guard is made. A folder that is gone is no link.
bool SafetyGuard::hasSymlinkedAncestor(const Path& url, const Path& root) {
    for (Path current = url.parent_path(); current.native().size() > root.native().size();
         current = current.parent_path()) {
        if (Files::isLink(current)) return true;
    }
    return false;
}

bool SafetyGuard::isPersonal(std::string_view relative) const {
    const auto inside = [&](const std::string& entry) {
        return Paths::matchedLength(relative, entry).has_value();
    };
    if (std::any_of(lists.neverInside.begin(), lists.neverInside.end(), inside)) return true;
    const std::string name = Paths::name(relative);
    const bool isNamed = std::any_of(
        lists.neverNamed.begin(), lists.neverNamed.end(),
        [&](const std::string& pattern) { return Paths::matchedLength(name, pattern) == name.size(); });
    if (isNamed) return true;

    const auto profile = std::find_if(lists.profiles.begin(), lists.profiles.end(), inside);
    if (profile == lists.profiles.end()) return false;
    const auto length = *Paths::matchedLength(relative, *profile);
    const std::string_view part = below(relative, relative.substr(0, length));
    const auto slash = part.find('/');
    const std::string_view deeper = slash == std::string_view::npos ? "" : part.substr(slash + 1);
    return std::none_of(lists.profileCaches.begin(), lists.profileCaches.end(),
                        [&](const std::string& cache) {
                            return Paths::isInside(part, cache) || Paths::isInside(deeper, cache);
                        });
}

// Both ways: a barred folder also shields every folder that holds it. A folder that was named through a link
// is barred under both of its names.
bool SafetyGuard::isBarred(std::string_view path) const {
    const auto meets = [&](const Path& folder) {
        return Paths::isInside(path, folder.native()) || Paths::isInside(folder.native(), path);
    };
    return std::any_of(protectedPaths.begin(), protectedPaths.end(), [&](const std::string& entry) {
        const Path folder = Paths::standardized(Paths::expandingTilde(entry, home));
        return meets(folder) || meets(Paths::resolved(folder));
    });
}

}  // namespace tavrel
