#include "platform/linux/files/LinuxFolderReader.h"

#include <array>
#include <cstddef>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace tavrel {
namespace {

constexpr std::size_t bufferSize = 65'536;  // some two thousand entries a call

/// Attributes that a network file system has at hand are good enough: no round trip for each file.
constexpr int statFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC;
constexpr unsigned wanted = STATX_TYPE | STATX_NLINK | STATX_INO | STATX_BLOCKS | STATX_MTIME;

FolderEntry describe(int folder, const dirent64& found) {
    FolderEntry entry{.name = static_cast<const char*>(found.d_name)};
    if (found.d_type == DT_DIR) {
        entry.kind = FolderEntry::Kind::folder;
        return entry;
    }
    struct statx
        status;  // NOLINT(cppcoreguidelines-pro-type-member-init): 256 bytes a file, filled by the call
    if (::statx(folder, entry.name.data(), statFlags, wanted, &status) != 0) return entry;
    entry.kind = entryKind(status.stx_mode);
    if (entry.kind == FolderEntry::Kind::folder) return entry;
    entry.measured = true;
    entry.device = makedev(status.stx_dev_major, status.stx_dev_minor);
    entry.inode = status.stx_ino;
    entry.links = status.stx_nlink;
    entry.allocated = static_cast<std::int64_t>(status.stx_blocks) * blockSize;
    entry.modified = instantOf(status.stx_mtime.tv_sec, status.stx_mtime.tv_nsec);
    return entry;
}

bool isSelfOrParent(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

}  // namespace

bool LinuxFolderReader::read(int folder, const std::function<bool(const FolderEntry&)>& visit) const {
    alignas(dirent64) std::array<std::byte, bufferSize> buffer;
    while (true) {
        const ssize_t filled = ::getdents64(folder, buffer.data(), buffer.size());
        if (filled <= 0) return filled == 0;
        for (ssize_t at = 0; at < filled;) {
            const auto& found = *reinterpret_cast<const dirent64*>(buffer.data() + at);
            at += found.d_reclen;
            if (!isSelfOrParent(found.d_name) && !visit(describe(folder, found))) return true;
        }
    }
}

const FolderReader& systemFolderReader() {
    static const LinuxFolderReader reader;
    return reader;
}

}  // namespace tavrel
