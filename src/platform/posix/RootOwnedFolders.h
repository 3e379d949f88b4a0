#pragma once

#include <filesystem>

namespace tavrel {

/// Whether every folder from "/" down to the one that holds `path` belongs to root and lets nobody else swap
/// what is in it: not writable by group or others, unless sticky. A link among them is a no, and so is a path
/// that is not absolute or holds "." or "..".
[[nodiscard]] bool onlyRootCanReplaceFoldersAbove(const std::filesystem::path& path);

}  // namespace tavrel
