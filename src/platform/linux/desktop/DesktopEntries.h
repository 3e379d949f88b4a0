#pragma once

#include "platform/linux/desktop/DesktopEntry.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

/// A desktop entry that lies in one of the folders for applications.
struct InstalledEntry {
    std::string identifier;  // the file's name without its suffix, folders joined by "-"
    std::filesystem::path file;
    DesktopEntry entry;
};

/// All entries of these folders and those below them, the folders in their order. An identifier may come more
/// than once; the first one counts.
[[nodiscard]] std::vector<InstalledEntry> installedEntries(const std::vector<std::filesystem::path>& folders);

}  // namespace tavrel
