#pragma once

#include <filesystem>

namespace tavrel {

/// Whether nobody but root can put another thing in the place of a folder above `path`: each of them lies in
/// a folder that belongs to root and is not writable by group or others, unless sticky. Others may write to
/// the folder that holds `path` itself. A link on the way is a no, and so is a path that is not absolute or
/// holds "." or "..".
[[nodiscard]] bool onlyRootCanReplaceFoldersAbove(const std::filesystem::path& path);

}  // namespace tavrel
