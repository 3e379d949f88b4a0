#include "platform/posix/PosixFolderAccess.h"

#include "core/FileHandle.h"
#include "core/Paths.h"
#include "core/RandomBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

FileIdentity identityOf(const struct stat& status) {
    return {.device = status.st_dev, .inode = status.st_ino, .type = status.st_mode & S_IFMT};
}

tl::unexpected<std::error_code> failure(int code) {
    return tl::unexpected(std::error_code(code, std::generic_category()));
}

/// An empty folder takes the new name, as a rename replaces nothing but an empty folder.
std::error_code moveFolder(int fromFolder, const std::string& fromName, int toFolder,
                           const std::string& toName) {
    if (::mkdirat(toFolder, toName.c_str(), S_IRWXU) != 0) return lastError();
    if (::renameat(fromFolder, fromName.c_str(), toFolder, toName.c_str()) == 0) return {};
    const auto failed = lastError();
    ::unlinkat(toFolder, toName.c_str(), AT_REMOVEDIR);
    return failed;
}

std::error_code unlinkFile(int folder, const std::string& name) {
    return ::unlinkat(folder, name.c_str(), 0) == 0 ? std::error_code() : lastError();
}

}  // namespace

bool PosixFolderAccess::isPlainName(const std::string& component) {
    return !component.empty() && component != "." && component != ".." &&
           component.find('/') == std::string::npos && component.find('\0') == std::string::npos;
}

FolderAccess::Outcome<FileHandle> PosixFolderAccess::openAnchor(const std::filesystem::path& root) const {
    auto here = openFolder(AT_FDCWD, "/");
    for (const auto& component : Paths::components(root.native())) {
        if (!here) break;
        here = openFolder(here->get(), component);
    }
    return here;
}

FolderAccess::Outcome<FileHandle> PosixFolderAccess::openBeneath(
    int anchor, const std::vector<std::string>& components) const {
    auto here = openFolder(anchor, ".");
    for (const auto& component : components) {
        if (!isPlainName(component)) return failure(EINVAL);
        if (!here) break;
        here = openOnSameMount(here->get(), component);
    }
    return here;
}

FolderAccess::Outcome<FileHandle> PosixFolderAccess::openAbove(int handle) const {
    const auto here = identify(handle);
    if (!here) return tl::unexpected(here.error());
    auto above = openOnSameMount(handle, "..");
    if (!above) return above;
    const auto there = identify(above->get());
    if (there && there->sameThing(*here)) return failure(ENOENT);
    return above;
}

FolderAccess::Outcome<FileHandle> PosixFolderAccess::openOnSameMount(int at, const std::string& name) const {
    auto opened = openFolder(at, name);
    if (!opened) return opened;
    const auto from = identify(at);
    const auto to = identify(opened->get());
    if (!from) return tl::unexpected(from.error());
    if (!to) return tl::unexpected(to.error());
    // Mounts decide where they are numbered: one mounted file system may count as several devices.
    const bool numbered = from->mount != 0 && to->mount != 0;
    const bool same = numbered ? from->mount == to->mount : from->device == to->device;
    if (!same) return failure(EXDEV);
    return opened;
}

FolderAccess::Outcome<FileHandle> PosixFolderAccess::openFolder(int at, const std::string& name) const {
    FileHandle opened(::openat(at, name.c_str(), folderFlags));
    if (opened) return opened;
    const auto failed = lastError();
    // Systems disagree on the error for a link here; people shall read that it was one.
    if (failed == std::errc::not_a_directory) {
        const auto entry = identify(at, name);
        if (entry && entry->isLink()) return failure(ELOOP);
    }
    return tl::unexpected(failed);
}

FolderAccess::Outcome<FileIdentity> PosixFolderAccess::identify(int handle) const {
    struct stat status {};
    if (::fstat(handle, &status) != 0) return tl::unexpected(lastError());
    return identityOf(status);
}

FolderAccess::Outcome<FileIdentity> PosixFolderAccess::identify(int folder, const std::string& name) const {
    struct stat status {};
    if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return tl::unexpected(lastError());
    return identityOf(status);
}

std::error_code PosixFolderAccess::moveExclusively(int fromFolder, const std::string& fromName, int toFolder,
                                                   const std::string& toName) const {
    const auto source = identify(fromFolder, fromName);
    if (!source) return source.error();
    return source->isFolder() ? moveFolder(fromFolder, fromName, toFolder, toName)
                              : moveFile(fromFolder, fromName, toFolder, toName);
}

std::error_code PosixFolderAccess::link(int fromFolder, const std::string& fromName, int toFolder,
                                        const std::string& toName) const {
    return ::linkat(fromFolder, fromName.c_str(), toFolder, toName.c_str(), 0) == 0 ? std::error_code()
                                                                                    : lastError();
}

std::error_code PosixFolderAccess::relink(int folder, const std::string& hidden, int toFolder,
                                          const std::string& toName) const {
    const auto failed = link(folder, hidden, toFolder, toName);
    return failed ? failed : unlinkFile(folder, hidden);
}

std::error_code PosixFolderAccess::moveFile(int fromFolder, const std::string& fromName, int toFolder,
                                            const std::string& toName) const {
    if (identify(toFolder, toName)) return std::make_error_code(std::errc::file_exists);
    // A file that cannot be linked would find no way out of its hidden name, neither on nor back.
    const std::string probe = privateName();
    if (const auto failed = link(fromFolder, fromName, toFolder, probe)) return failed;
    if (const auto failed = unlinkFile(toFolder, probe)) return failed;

    const std::string hidden = privateName();
    if (::renameat(fromFolder, fromName.c_str(), toFolder, hidden.c_str()) != 0) return lastError();
    const auto failed = relink(toFolder, hidden, toFolder, toName);
    if (!failed) return {};

    const auto arrived = identify(toFolder, hidden);
    const bool folderCame = arrived && arrived->isFolder();
    const auto stranded = folderCame ? moveFolder(toFolder, hidden, fromFolder, fromName)
                                     : relink(toFolder, hidden, fromFolder, fromName);
    return stranded ? stranded : failed;
}

std::error_code PosixFolderAccess::setMode(int handle, mode_t permissions) const {
    return ::fchmod(handle, permissions) == 0 ? std::error_code() : lastError();
}

bool PosixFolderAccess::holdsMount(int /*handle*/) const {
    return false;
}

const FolderAccess& posixFolderAccess() {
    static const PosixFolderAccess access;
    return access;
}

}  // namespace tavrel
