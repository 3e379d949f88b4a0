#pragma once

#include "core/Instant.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <sys/types.h>

namespace tavrel {

inline constexpr std::int64_t blockSize =
    512;  // bytes: the unit of st_blocks, whatever the file system's own

/// One entry of a folder with what the walker needs of it.
struct FolderEntry {
    enum class Kind { file, folder, link, other };

    std::string_view name;  // valid during the visit only, followed by a NUL
    Kind kind = Kind::other;
    bool measured =
        false;  // whether the fields below were read; never for a folder, which is measured when opened
    dev_t device = 0;
    ino_t inode = 0;
    nlink_t links = 0;
    std::int64_t allocated = 0;  // bytes: blocks of 512 as the file's metadata reports them
    Instant modified = distantPast;
};

/// The kind that the type bits of a mode stand for.
[[nodiscard]] FolderEntry::Kind entryKind(mode_t mode);

/// Lists a folder in bulk, in the order that the file system keeps.
class FolderReader {
  public:
    virtual ~FolderReader() = default;

    /// Visits every entry but "." and "..", from where the handle stands: a new one at the beginning. Stops
    /// early when the visitor answers false. What vanishes between the listing and its measure comes with
    /// `measured` false. Gives false when the folder could not be read to its end.
    virtual bool read(int folder, const std::function<bool(const FolderEntry&)>& visit) const = 0;
};

/// The portable reader: readdir and fstatat.
const FolderReader& posixFolderReader();
/// The fastest that the running system has.
const FolderReader& systemFolderReader();

}  // namespace tavrel
