#include "profiles/linux/UserDirs.h"

#include "core/Paths.h"
#include "core/Text.h"

#include <sstream>

namespace tavrel::Linux {

namespace {

const UserDirs& defaults() {
    static const UserDirs dirs = {
        {"DESKTOP", "Desktop"},    {"DOWNLOAD", "Downloads"},  {"TEMPLATES", "Templates"},
        {"PUBLICSHARE", "Public"}, {"DOCUMENTS", "Documents"}, {"MUSIC", "Music"},
        {"PICTURES", "Pictures"},  {"VIDEOS", "Videos"},
    };
    return dirs;
}

/// The inside of a double-quoted shell word: a backslash stands for the character behind it.
std::string unescaped(std::string_view quoted) {
    std::string text;
    for (std::size_t i = 0; i < quoted.size(); ++i) {
        if (quoted[i] == '\\' && i + 1 < quoted.size()) ++i;
        text += quoted[i];
    }
    return text;
}

/// A value's path relative to the home; empty for the home itself and for what lies elsewhere.
std::filesystem::path belowHome(const std::string& value, const std::filesystem::path& home) {
    constexpr std::string_view variable = "$HOME";
    std::filesystem::path path = value;
    if (value == variable || value.starts_with("$HOME/"))
        path = home.native() + value.substr(variable.size());
    path = Paths::standardized(path);
    if (path == home || !Paths::isInside(path.native(), home.native())) return {};
    return path.lexically_relative(home);
}

}  // namespace

UserDirs parseUserDirs(std::string_view text, const std::filesystem::path& home) {
    UserDirs dirs = defaults();
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        line = Text::trimmed(line);
        const auto begin = line.find("=\"");
        if (!line.starts_with("XDG_") || begin == std::string::npos || !line.ends_with('"')) continue;
        const std::string_view variable = std::string_view(line).substr(4, begin - 4);
        constexpr std::string_view suffix = "_DIR";
        if (!variable.ends_with(suffix) || line.size() < begin + 3) continue;
        const auto known = dirs.find(std::string(variable.substr(0, variable.size() - suffix.size())));
        if (known == dirs.end()) continue;
        const auto path =
            belowHome(unescaped(std::string_view(line).substr(begin + 2, line.size() - begin - 3)), home);
        if (!path.empty()) known->second = path;
    }
    return dirs;
}

}  // namespace tavrel::Linux
