#include "core/Paths.h"

#include <fnmatch.h>
#include <system_error>

namespace tavrel::Paths {

std::vector<std::string> components(std::string_view path) {
    std::vector<std::string> parts;
    while (!path.empty()) {
        const auto slash = path.find('/');
        if (slash != 0) parts.emplace_back(path.substr(0, slash));
        if (slash == std::string_view::npos) break;
        path.remove_prefix(slash + 1);
    }
    return parts;
}

Path standardized(const Path& path) {
    const std::string& text = path.native();
    const bool absolute = !text.empty() && text.front() == '/';
    std::vector<std::string> kept;
    for (auto& part : components(text)) {
        if (part == ".") continue;
        const bool climbs = part == "..";
        if (climbs && !kept.empty() && kept.back() != "..") {
            kept.pop_back();
        } else if (!climbs || !absolute) {
            kept.push_back(std::move(part));
        }
    }
    std::string joined = absolute ? "/" : "";
    for (std::size_t i = 0; i < kept.size(); ++i) {
        if (i > 0) joined += '/';
        joined += kept[i];
    }
    return joined;
}

bool isInside(std::string_view path, std::string_view root) {
    if (path == root) return true;
    if (!path.starts_with(root)) return false;
    return root.ends_with('/') || path[root.size()] == '/';
}

std::optional<std::size_t> matchedLength(std::string_view path, std::string_view root) {
    const auto star = root.find('*');
    if (star == std::string_view::npos)
        return isInside(path, root) ? std::optional(root.size()) : std::nullopt;
    const auto plain = root.substr(0, root.rfind('/', star) + 1);  // 0 where no slash stands before
    if (!path.starts_with(plain)) return std::nullopt;
    std::size_t at = 0;
    for (const std::string& part : components(root)) {
        if (at >= path.size()) return std::nullopt;
        const std::string name(path.substr(at, path.find('/', at) - at));
        const bool isPattern = part.find('*') != std::string::npos;
        if (isPattern ? ::fnmatch(part.c_str(), name.c_str(), 0) != 0 : part != name) return std::nullopt;
        at += name.size() + 1;
    }
    return at - 1;
}

Path expandingTilde(std::string_view text, const Path& home) {
    if (text == "~") return home;
    if (text.starts_with("~/")) return home / text.substr(2);
    return text;
}

std::string abbreviated(const Path& path, const Path& home) {
    const std::string& text = path.native();
    if (home == "/" || !isInside(text, home.native())) return text;
    return "~" + text.substr(home.native().size());
}

std::string joined(std::string folder, std::string_view name) {
    if (!folder.ends_with('/')) folder += '/';
    return folder += name;
}

std::string extension(const Path& path) {
    const std::string last = name(path);
    const auto dot = last.rfind('.');
    if (dot == std::string::npos || dot == 0) return {};
    return last.substr(dot + 1);
}

std::string name(const Path& path) {
    const std::string& text = path.native();
    const auto end = text.find_last_not_of('/');
    if (end == std::string::npos) return text.empty() ? "" : "/";
    const auto slash = text.rfind('/', end);
    const auto begin = slash == std::string::npos ? 0 : slash + 1;
    return text.substr(begin, end - begin + 1);
}

Path resolved(const Path& path) {
    std::error_code failed;
    const Path real = std::filesystem::canonical(path, failed);
    return standardized(failed ? path : real);
}

}  // namespace tavrel::Paths
