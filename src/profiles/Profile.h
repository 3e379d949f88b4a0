#pragma once

#include "cleaning/InstallerFinder.h"
#include "cleaning/JunkScanner.h"
#include "cleaning/ProjectPurger.h"
#include "cleaning/SafetyGuard.h"
#include "cleaning/Trash.h"
#include "core/Places.h"
#include "core/PreferenceValues.h"
#include "disk/ExplorerPlace.h"
#include "monitoring/PlatformTexts.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// One family of systems as data: the tables that the logic is handed, and where things lie. Logic never asks
/// which profile is in force.
struct Profile {
    enum class Family { macos, linux };
    enum class TrashLayout { flat, freedesktop };

    Family family;
    Places places;
    JunkScanner::Tables scan;
    InstallerFinder::Tables installers;
    std::vector<SpecialScanners::AiFolder> aiFolders = {};  // beside those that every system has
    ProjectPurger::Tables projects;
    SafetyGuard::Lists guardLists;
    std::vector<std::string_view> fullDiskAccessProbes;
    std::vector<std::string_view> packages = {};  // endings of folders that people see as one thing
    TrashLayout trashLayout = TrashLayout::flat;
    std::vector<ExplorerPlace> explorerPlaces = {};
    std::vector<std::string_view> volumeFolders = {};  // in which other volumes are mounted
    PlatformTexts texts;

    /// A guard of this moment for the user's home.
    [[nodiscard]] SafetyGuard safetyGuard(const PreferenceValues& preferences,
                                          std::vector<std::filesystem::path> extraRoots) const;
};

/// Where the user's folders are, when the environment moves them; relative paths and empty ones are ignored,
/// and so are those outside the home.
struct UserEnvironment {
    std::filesystem::path configHome;  // XDG_CONFIG_HOME
    std::filesystem::path dataHome;    // XDG_DATA_HOME
};

namespace Profiles {

[[nodiscard]] Profile macos(const std::filesystem::path& root, const std::filesystem::path& home);
[[nodiscard]] Profile linux(const std::filesystem::path& root, const std::filesystem::path& home,
                            const UserEnvironment& environment = {});

/// "macos" or "linux"; nothing for any other text.
[[nodiscard]] std::optional<Profile::Family> family(std::string_view name);
/// That of the system this program runs on.
[[nodiscard]] Profile::Family ofThisSystem();

}  // namespace Profiles
}  // namespace tavrel
