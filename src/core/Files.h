#pragma once

#include "core/Instant.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

#include <tl/expected.hpp>

/// File queries by path, and atomic replacement of small files. On an error a query returns false, nullopt or
/// an empty list. No function throws. Thread-safe; all block.
namespace tavrel::Files {

using Path = std::filesystem::path;

/// Whether something is there; a link counts by what it points to.
[[nodiscard]] bool exists(const Path& path);
/// Whether the thing itself is a folder; a link to one is not.
[[nodiscard]] bool isFolder(const Path& path);
/// Whether the thing itself is a symbolic link.
[[nodiscard]] bool isLink(const Path& path);
/// Whether the thing itself is a regular file.
[[nodiscard]] bool isRegular(const Path& path);

/// When the thing itself (never what a link points to) was last modified.
[[nodiscard]] std::optional<Instant> modificationDate(const Path& path);

/// Device and inode of the thing itself.
[[nodiscard]] std::optional<std::pair<dev_t, ino_t>> identifier(const Path& path);

enum class Hidden { include, skip };

/// The names in a folder in ascending byte order, "." and ".." left out. Empty when it cannot be listed.
[[nodiscard]] std::vector<std::string> names(const Path& folder, Hidden hidden = Hidden::include);

/// The paths below `folder` that exist and match `pattern`, ascending. Each part of the pattern that holds a
/// "*" stands for every name that it fits as fnmatch(3) has it, hidden ones too; the others stand as they
/// are.
[[nodiscard]] std::vector<Path> matching(const Path& folder, std::string_view pattern);

/// Whether `file` is a regular file that begins with `text`.
[[nodiscard]] bool beginsWith(const Path& file, std::string_view text);

/// The whole content of a file. The error is the system's, as `errno` gives it.
[[nodiscard]] tl::expected<std::string, std::error_code> read(const Path& file);

/// Replaces `file` by `content` so that a reader sees the old version or the new one, whole, also after a
/// crash: written beside it, flushed, renamed over it. A file behind a link is replaced, not the link;
/// a link to nothing is replaced itself. What is no regular file, such as a device, is refused with EINVAL.
/// On an error the old file stands as it was.
[[nodiscard]] std::error_code writeAtomically(const Path& file, std::string_view content);

/// Moves a file that does not decode out of the way of its replacement: to its name with ".damaged", or
/// ".damaged-2" and so on, so that nothing is lost. The new path, or nothing where that failed.
std::optional<Path> setAside(const Path& file);

}  // namespace tavrel::Files
