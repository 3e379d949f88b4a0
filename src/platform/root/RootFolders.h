#pragma once

#include <array>

namespace tavrel {

/// The folders of a Linux system whose entries root may remove, never they themselves. The root helper
/// removes nothing elsewhere, for any caller.
inline constexpr std::array linuxRootFolders = {
    "/var/log",
    "/var/lib/systemd/coredump",
    "/var/crash",
};

}  // namespace tavrel
