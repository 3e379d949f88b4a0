#include "platform/posix/RootOwnedFolders.h"

#include <sys/stat.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

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
    fs::path folder = "/";
    for (const fs::path& part : below) {
        if (!isPlainName(part) || !isRootsAlone(folder)) return false;
        folder /= part;
    }
    return true;
}

}  // namespace tavrel
