#pragma once

#include "core/FileHandle.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <system_error>
#include <vector>

#include <tl/expected.hpp>

namespace tavrel {

/// Identifies an entry on disk independently of its name.
struct FileIdentity {
    dev_t device = 0;
    ino_t inode = 0;
    mode_t type = 0;          // the S_IFMT bits
    std::uint64_t mount = 0;  // which mount it was reached through; 0 where the system has no such number

    [[nodiscard]] bool isFolder() const { return S_ISDIR(type); }
    [[nodiscard]] bool isLink() const { return S_ISLNK(type); }
    /// The same thing; the way it was reached does not count.
    [[nodiscard]] bool sameThing(const FileIdentity& other) const {
        return device == other.device && inode == other.inode && type == other.type;
    }
    /// On the same mounted file system.
    [[nodiscard]] bool sameMount(const FileIdentity& other) const {
        return device == other.device && mount == other.mount;
    }
};

/// Opens and compares entries by handle, so that no other process can swap a folder between a check and an
/// act. Names are single components; no call here follows a symbolic link or enters another mount.
class FolderAccess {
  public:
    template <typename T>
    using Outcome = tl::expected<T, std::error_code>;

    virtual ~FolderAccess() = default;

    /// Opens an admitted root by its absolute path, in which no component is a link: roots are resolved when
    /// they are admitted, so a link now means that the path was changed. Mounts may lie on the way.
    [[nodiscard]] virtual Outcome<FileHandle> openAnchor(const std::filesystem::path& root) const = 0;

    /// Opens `anchor`/`components[0]`/... without following links or crossing mounts; no components reopen
    /// the anchor. Errors: ELOOP for a link, EXDEV for a mount point, EINVAL for what is no plain name,
    /// ENOENT, ENOTDIR. Where the folder may be searched but not read, the handle may be good for names only:
    /// listing it then fails with EBADF.
    [[nodiscard]] virtual Outcome<FileHandle> openBeneath(
        int anchor, const std::vector<std::string>& components) const = 0;
    /// Opens the folder that holds the folder behind `handle`: EXDEV when that is another mount, ENOENT when
    /// nothing is above.
    [[nodiscard]] virtual Outcome<FileHandle> openAbove(int handle) const = 0;

    [[nodiscard]] virtual Outcome<FileIdentity> identify(int handle) const = 0;
    /// The entry `name` of `folder` itself, never what a link points to. A whole path, looked up as usual,
    /// may stand beside AT_FDCWD.
    [[nodiscard]] virtual Outcome<FileIdentity> identify(int folder, const std::string& name) const = 0;

    /// Moves an entry to another folder of the same file system; fails with EEXIST rather than replace
    /// anything.
    [[nodiscard]] virtual std::error_code moveExclusively(int fromFolder, const std::string& fromName,
                                                          int toFolder, const std::string& toName) const = 0;

    /// Sets the permission bits of the folder behind `handle`, also where the handle is good for names only.
    [[nodiscard]] virtual std::error_code setMode(int handle, mode_t permissions) const = 0;

    /// Whether something is mounted at or below the folder behind `handle`, so that a removal can be refused
    /// before it begins. False where the system does not know in advance; the walk still refuses at the
    /// mount.
    [[nodiscard]] virtual bool holdsMount(int handle) const = 0;
};

/// Portable: one component at a time, devices compared.
const FolderAccess& posixFolderAccess();
/// The strongest that the running system has.
const FolderAccess& systemFolderAccess();

}  // namespace tavrel
