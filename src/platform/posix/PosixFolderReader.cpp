#include "platform/posix/PosixFolderReader.h"

#include "core/FileHandle.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace tavrel {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using Listing = std::unique_ptr<DIR, CloseFolder>;

Listing list(int folder) {
    FileHandle copy(::fcntl(folder, F_DUPFD_CLOEXEC, 0));  // closedir closes what it was given
    Listing listing(copy ? ::fdopendir(copy.get()) : nullptr);
    if (listing) static_cast<void>(copy.release());
    return listing;
}

FolderEntry describe(int folder, const char* name) {
    FolderEntry entry{.name = name};
    struct stat status {};
    if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0) return entry;
    entry.kind = entryKind(status.st_mode);
    if (entry.kind == FolderEntry::Kind::folder) return entry;
    entry.measured = true;
    entry.device = status.st_dev;
    entry.inode = status.st_ino;
    entry.links = status.st_nlink;
    entry.allocated = status.st_blocks * blockSize;
    entry.modified = instantOf(status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
    return entry;
}

}  // namespace

FolderEntry::Kind entryKind(mode_t mode) {
    if (S_ISREG(mode)) return FolderEntry::Kind::file;
    if (S_ISDIR(mode)) return FolderEntry::Kind::folder;
    if (S_ISLNK(mode)) return FolderEntry::Kind::link;
    return FolderEntry::Kind::other;
}

bool PosixFolderReader::read(int folder, const std::function<bool(const FolderEntry&)>& visit) const {
    const Listing listing = list(folder);
    if (!listing) return false;
    errno = 0;
    while (const dirent* found = ::readdir(listing.get())) {
        const std::string_view name = found->d_name;
        if (name != "." && name != ".." && !visit(describe(folder, found->d_name))) return true;
        errno = 0;
    }
    return errno == 0;
}

const FolderReader& posixFolderReader() {
    static const PosixFolderReader reader;
    return reader;
}

}  // namespace tavrel
