#pragma once

#include <filesystem>
#include <span>
#include <string_view>

namespace tavrel::Permissions {

/// Whether the process may see what the system hides from programs by default. `probes` are paths below the
/// home, of files and folders that the system guards: being able to read one proves the access. A system
/// that hides nothing has no probes, and there the answer is true.
[[nodiscard]] bool hasFullDiskAccess(const std::filesystem::path& home,
                                     std::span<const std::string_view> probes);

}  // namespace tavrel::Permissions
