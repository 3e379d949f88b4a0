#pragma once

#include <filesystem>
#include <span>
#include <string_view>

namespace tavrel::Permissions {

/// Returns true if the process can read any of `probes`, or if there are none. `probes` are paths relative to
/// `home` of files and folders that the system hides from programs by default: reading one proves the access.
/// Reads the disk.
[[nodiscard]] bool hasFullDiskAccess(const std::filesystem::path& home,
                                     std::span<const std::string_view> probes);

}  // namespace tavrel::Permissions
