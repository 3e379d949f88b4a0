#pragma once

#include "platform/RunningApplications.h"

#include <filesystem>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace tavrel {

/// The folders with installed applications' desktop entries, the most important first, as the XDG base
/// directories and the environment name them; those of Flatpak and snap are among them.
[[nodiscard]] std::vector<std::filesystem::path> applicationFolders(const std::filesystem::path& home);

/// What runs now, read from a folder like /proc: the processes of this user, for root those of all. The
/// `bundleIDs` are the names of executables and of scripts, the names that processes gave themselves, the
/// packages of their sandboxes (Flatpak, snap), and the identifiers of the desktop entries that start them;
/// the `names` are those that people read, and the executables'.
[[nodiscard]] RunningApplications runningApplications(
    const std::filesystem::path& procRoot, const std::vector<std::filesystem::path>& applicationFolders);

/// Names of applications by the identifier of their desktop entry. The entries are read when first asked for.
class DesktopNames final : public ApplicationNames {
  public:
    explicit DesktopNames(std::vector<std::filesystem::path> applicationFolders)
        : folders_(std::move(applicationFolders)) {}

    [[nodiscard]] std::optional<std::string> displayName(const std::string& bundleID) const override;
    [[nodiscard]] bool isInstalled(const std::string& name) const override;
    [[nodiscard]] bool isStarted(const std::filesystem::path& file) const override;

  private:
    struct Installed {
        std::map<std::string, std::string> names;  // by identifier
        std::set<std::string> known;               // lower case
        std::set<std::string> started;             // resolved paths
    };
    [[nodiscard]] const Installed& installed() const;

    std::vector<std::filesystem::path> folders_;
    mutable std::once_flag read_;
    mutable Installed installed_;
};

}  // namespace tavrel
