#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace tavrel::Linux {

/// The user's own folders below the home, by the names that `user-dirs.dirs` has for them without "XDG_" and
/// "_DIR": "DOWNLOAD", "DESKTOP", "DOCUMENTS", "MUSIC", "PICTURES", "VIDEOS", "PUBLICSHARE", "TEMPLATES".
using UserDirs = std::map<std::string, std::filesystem::path>;

/// Parses the lines `XDG_NAME_DIR="$HOME/x"` of xdg-user-dirs. Values are relative to the home; a name that
/// is missing, that points at the home itself or out of it has its English default.
[[nodiscard]] UserDirs parseUserDirs(std::string_view text, const std::filesystem::path& home);

}  // namespace tavrel::Linux
