#pragma once

#include <filesystem>
#include <sys/types.h>

namespace tavrel {

/// Whether nobody but root can put another thing in the place of a folder above `path`: each of them lies in
/// a folder that belongs to root and is not writable by group or others, unless sticky. Others may write to
/// the folder that holds `path` itself. A link on the way is a no, and so is a path that is not absolute or
/// holds "." or "..". `alsoTrusted` is a user who counts like root.
[[nodiscard]] bool onlyRootCanReplaceFoldersAbove(const std::filesystem::path& path, uid_t alsoTrusted = 0);

/// Whether nobody but root can change the program at `path` or put another in its place, so that it may be
/// started as root. A link is a no.
[[nodiscard]] bool onlyRootCanChangeProgram(const std::filesystem::path& path, uid_t alsoTrusted = 0);

}  // namespace tavrel
