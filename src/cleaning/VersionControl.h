#pragma once

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

namespace tavrel {

class GitIndex;

/// Finds out what version control tracks, so that committed files and later changes to them are not deleted.
/// Only reads: nothing is run, no hook, filter or setting of a repository has a say. It remembers the
/// repositories above the path that it was asked about last; one object serves one scan, on one thread.
class VersionControl {
  public:
    using Path = std::filesystem::path;

    VersionControl();
    ~VersionControl();
    VersionControl(const VersionControl&) = delete;
    VersionControl& operator=(const VersionControl&) = delete;

    /// Whether `path`, which is absolute, or anything below it is tracked by a repository that it lies in or
    /// is itself. In doubt it counts as tracked: an index that cannot be read, a repository with
    /// history and no index, one whose work tree lies elsewhere, and every system but git.
    /// Repositories further below are not looked for: `isMark` finds them on a walk that is made anyway. Nor
    /// are those that no ".git" points to from a folder above, such as a bare one used with a work tree.
    [[nodiscard]] bool tracks(const Path& path);

    /// Whether a file or folder of this name makes the folder that it lies in a work tree of its own.
    [[nodiscard]] static bool isMark(std::string_view name);

  private:
    struct Level;  // one folder on the way to the path

    std::vector<Level> levels_;  // from "/" downwards
};

}  // namespace tavrel
