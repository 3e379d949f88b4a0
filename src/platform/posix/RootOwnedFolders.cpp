#include "platform/posix/RootOwnedFolders.h"

#include <sys/stat.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

bool isFolder(const fs::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isRootsAlone(const fs::path& folder) {
    struct stat status {};
    if (::lstat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != 0) return false;
    const bool writable = (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
    return !writable || (status.st_mode & S_ISVTX) != 0;
}

/// Whether `part` is a name that leads one folder down and nowhere else.
bool isPlainName(const fs::path& part) {
    return !part.empty() && part != "." && part != "..";
}

}  // namespace

bool onlyRootCanReplaceFoldersAbove(const fs::path& path) {
    if (!path.is_absolute()) return false;
    const fs::path below = path.relative_path();
    if (below.empty()) return false;
    // Each folder is an entry of the one above it, and there it must be safe from being replaced. In the last
    // one only the thing itself could be, which a removal that follows no link bears.
    fs::path folder = "/";
    fs::path holder;
    for (const fs::path& part : below) {
        if (!isPlainName(part) || !isFolder(folder)) return false;
        if (!holder.empty() && !isRootsAlone(holder)) return false;
        holder = folder;
        folder /= part;
    }
    return true;
}

}  // namespace tavrel
