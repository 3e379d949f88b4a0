#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Paths as the program reasons about them: byte strings with slashes. Nothing here asks the disk, apart
/// from `resolved`.
namespace tavrel::Paths {

using Path = std::filesystem::path;

/// `path` with empty and "." parts dropped, ".." taken back lexically and no slash at the end.
/// A relative path stays relative.
[[nodiscard]] Path standardized(const Path& path);

/// Whether `path` is `root` itself or lies below it. Text only: "/a/bc" is not inside "/a/b".
[[nodiscard]] bool isInside(std::string_view path, std::string_view root);

/// How many bytes at the start of `path` the pattern `root` stands for: up to the end of the entry that it
/// matches. A part of the pattern with a "*" fits any one name as fnmatch(3) has it. Nothing when `path` is
/// not inside.
[[nodiscard]] std::optional<std::size_t> matchedLength(std::string_view path, std::string_view root);

/// `text` with a leading "~" or "~/" replaced by `home`; anything else unchanged.
[[nodiscard]] Path expandingTilde(std::string_view text, const Path& home);

/// The opposite: "~" or "~/x" for `path` in `home`; any other path unchanged. A home that is "/" has no short
/// form.
[[nodiscard]] std::string abbreviated(const Path& path, const Path& home);

/// `folder` and `name` with one slash between them.
[[nodiscard]] std::string joined(std::string folder, std::string_view name);

/// What stands behind the last dot of the last component, lower case not applied. Empty when there is no
/// dot, when the dot is the first character, or when nothing follows it.
[[nodiscard]] std::string extension(const Path& path);

/// The last component; "/" for the root.
[[nodiscard]] std::string name(const Path& path);

/// The parts between the slashes.
[[nodiscard]] std::vector<std::string> components(std::string_view path);

/// `path` with every symbolic link of it resolved, then standardised; `path` standardised where it does
/// not exist.
[[nodiscard]] Path resolved(const Path& path);

}  // namespace tavrel::Paths
