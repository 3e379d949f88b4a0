#include "platform/posix/RootOwnedFolders.h"

#include <sys/stat.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

/// Folders and files that root, or who is trusted like root, holds alone.
class Holders {
  public:
    explicit Holders(uid_t alsoTrusted) : alsoTrusted_(alsoTrusted) {}

    /// Whether nobody else can put another thing in the place of `entry`, which lies in `folder`.
    [[nodiscard]] bool keep(const struct stat& folder, const struct stat& entry) const {
        if (!S_ISDIR(folder.st_mode) || !isTrusted(folder.st_uid)) return false;
        // In a sticky folder everybody moves what is theirs.
        const bool sticky = (folder.st_mode & S_ISVTX) != 0;
        return !isShared(folder) || (sticky && isTrusted(entry.st_uid));
    }
    /// Whether nobody else can write to the file.
    [[nodiscard]] bool own(const struct stat& file) const {
        return S_ISREG(file.st_mode) && isTrusted(file.st_uid) && !isShared(file);
    }

  private:
    [[nodiscard]] bool isTrusted(uid_t user) const { return user == 0 || user == alsoTrusted_; }
    static bool isShared(const struct stat& status) { return (status.st_mode & (S_IWGRP | S_IWOTH)) != 0; }

    uid_t alsoTrusted_;
};

bool look(const fs::path& path, struct stat& status) {
    return ::lstat(path.c_str(), &status) == 0;
}

/// Whether `part` is a name that leads one folder down and nowhere else.
bool isPlainName(const fs::path& part) {
    return !part.empty() && part != "." && part != "..";
}

}  // namespace

bool onlyRootCanReplaceFoldersAbove(const fs::path& path, uid_t alsoTrusted) {
    if (!path.is_absolute()) return false;
    const fs::path below = path.relative_path();
    if (below.empty()) return false;
    // Each folder is an entry of the one above it, and there it must be safe from being replaced. In the last
    // one only the thing itself could be, which a removal that follows no link bears.
    fs::path folder = "/";
    struct stat holder {};
    for (const fs::path& part : below) {
        struct stat status {};
        if (!isPlainName(part) || !look(folder, status) || !S_ISDIR(status.st_mode)) return false;
        if (folder != "/" && !Holders(alsoTrusted).keep(holder, status)) return false;
        holder = status;
        folder /= part;
    }
    return true;
}

bool onlyRootCanChangeProgram(const fs::path& path, uid_t alsoTrusted) {
    struct stat folder {};
    struct stat program {};
    if (!onlyRootCanReplaceFoldersAbove(path, alsoTrusted)) return false;
    if (!look(path.parent_path(), folder) || !look(path, program)) return false;
    const Holders holders(alsoTrusted);
    return holders.keep(folder, program) && holders.own(program);
}

}  // namespace tavrel
