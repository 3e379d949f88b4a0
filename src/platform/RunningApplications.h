#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>

namespace tavrel {

/// What runs now, as the scanners compare it with the names of folders. Every name stands in lower case as
/// well: a folder and its program are often called alike but for that.
struct RunningApplications {
    std::set<std::string> bundleIDs;  // bundle identifiers; on Linux desktop file names and executables
    std::set<std::string> names;      // the names that people read
    std::set<std::string> files;      // absolute paths that processes run, were started with or hold open
    bool complete = true;             // false when the processes could not be listed

    /// Adds what is not empty, under both forms.
    void add(const std::string& bundleID, const std::string& name);

    /// Whether a process uses `path` itself or something below it.
    [[nodiscard]] bool use(const std::filesystem::path& path) const;
};

/// The applications that are installed, by the identifiers of their desktop entries or bundles.
class ApplicationNames {
  public:
    virtual ~ApplicationNames() = default;
    /// The name that people read.
    [[nodiscard]] virtual std::optional<std::string> displayName(const std::string& bundleID) const = 0;
    /// Whether `name` is an application's identifier, the last part of it, or the program that it starts;
    /// letter case apart.
    [[nodiscard]] virtual bool isInstalled(const std::string& /*name*/) const { return false; }
    /// Whether an entry of the menu starts this very file.
    [[nodiscard]] virtual bool isStarted(const std::filesystem::path& /*file*/) const { return false; }
};

}  // namespace tavrel
