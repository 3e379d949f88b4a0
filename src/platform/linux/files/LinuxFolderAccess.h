#pragma once

#include "platform/posix/PosixFolderAccess.h"

#include <cstdint>
#include <istream>
#include <string>
#include <vector>

namespace tavrel {

/// The kernel's own refusals: one call opens a whole way down without a link or a mount on it, a rename never
/// replaces. Where the running kernel or a sandbox withholds these calls, the portable way steps in, with
/// mounts compared by their numbers. See openat2(2), renameat2(2), statx(2).
class LinuxFolderAccess : public PosixFolderAccess {
  public:
    /// Opens `path` below the handle `at`, strictly; -1 and `errno` on failure.
    using StrictOpen = int (*)(int at, const char* path, std::uint64_t flags);

    LinuxFolderAccess();
    /// With another call in the place of openat2, as a sandbox would put it there.
    explicit LinuxFolderAccess(StrictOpen open) : open_(open) {}

    using PosixFolderAccess::identify;
    [[nodiscard]] Outcome<FileHandle> openBeneath(int anchor,
                                                  const std::vector<std::string>& components) const override;
    /// ENOTSUP on a kernel without mount ids (before 5.8): nothing is removed there.
    [[nodiscard]] Outcome<FileIdentity> identify(int handle) const override;
    [[nodiscard]] Outcome<FileIdentity> identify(int folder, const std::string& name) const override;
    [[nodiscard]] std::error_code moveExclusively(int fromFolder, const std::string& fromName, int toFolder,
                                                  const std::string& toName) const override;
    [[nodiscard]] std::error_code setMode(int handle, mode_t permissions) const override;
    [[nodiscard]] bool holdsMount(int handle) const override;

  protected:
    [[nodiscard]] Outcome<FileHandle> openFolder(int at, const std::string& name) const override;

  private:
    [[nodiscard]] Outcome<FileHandle> openChunk(int at, const std::string& path) const;

    StrictOpen open_;
};

/// The mount points that a text in the form of /proc/self/mountinfo names; see proc_pid_mountinfo(5).
[[nodiscard]] std::vector<std::string> mountPoints(std::istream& mountInfo);

}  // namespace tavrel
