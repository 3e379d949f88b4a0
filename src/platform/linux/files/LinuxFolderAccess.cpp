#include "platform/linux/files/LinuxFolderAccess.h"

#include "core/FileHandle.h"
#include "core/Paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <linux/openat2.h>
#include <sstream>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <fmt/format.h>

namespace tavrel {

namespace {

constexpr std::uint64_t folderFlags = O_DIRECTORY | O_CLOEXEC;

int openAt2(int at, const char* path, std::uint64_t flags) {
    open_how how{};
    how.flags = flags;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_MAGICLINKS | RESOLVE_NO_XDEV;
    return static_cast<int>(::syscall(SYS_openat2, at, path, &how, sizeof how));
}

/// Opens for listing, or for names only where the folder may be searched but not read.
template <typename Open>
FolderAccess::Outcome<FileHandle> openReadableOrNot(const Open& open) {
    FileHandle opened(open(folderFlags | O_RDONLY));
    if (!opened && errno == EACCES) opened = FileHandle(open(folderFlags | O_PATH));
    if (!opened) return tl::unexpected(lastError());
    return opened;
}

FolderAccess::Outcome<FileIdentity> identityOf(int at, const char* name, int flags) {
    struct statx status {};
    constexpr unsigned wanted = STATX_TYPE | STATX_INO | STATX_MNT_ID;
    if (::statx(at, name, flags | AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, wanted, &status) != 0) {
        return tl::unexpected(lastError());
    }
    if ((status.stx_mask & STATX_MNT_ID) == 0)
        return tl::unexpected(std::make_error_code(std::errc::not_supported));
    return FileIdentity{.device = makedev(status.stx_dev_major, status.stx_dev_minor),
                        .inode = status.stx_ino,
                        .type = static_cast<mode_t>(status.stx_mode & S_IFMT),
                        .mount = status.stx_mnt_id};
}

std::string handlePath(int handle) {
    return fmt::format("/proc/self/fd/{}", handle);
}

/// "\040" and its like, as the kernel writes spaces, tabs, newlines and backslashes there.
std::string withoutOctalEscapes(std::string_view text) {
    const auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
    std::string plain;
    while (!text.empty()) {
        if (text.size() >= 4 && text[0] == '\\' && std::all_of(text.begin() + 1, text.begin() + 4, isOctal)) {
            plain += static_cast<char>((text[1] - '0') * 64 + (text[2] - '0') * 8 + (text[3] - '0'));
            text.remove_prefix(4);
        } else {
            plain += text.front();
            text.remove_prefix(1);
        }
    }
    return plain;
}

}  // namespace

LinuxFolderAccess::LinuxFolderAccess() : open_(openAt2) {}

FolderAccess::Outcome<FileHandle> LinuxFolderAccess::openFolder(int at, const std::string& name) const {
    auto opened = openReadableOrNot([&](std::uint64_t flags) {  //
        return ::openat(at, name.c_str(), static_cast<int>(flags) | O_NOFOLLOW);
    });
    // The portable way finds the words for the failure.
    return opened ? std::move(opened) : PosixFolderAccess::openFolder(at, name);
}

FolderAccess::Outcome<FileHandle> LinuxFolderAccess::openChunk(int at, const std::string& path) const {
    return openReadableOrNot([&](std::uint64_t flags) { return open_(at, path.c_str(), flags); });
}

FolderAccess::Outcome<FileHandle> LinuxFolderAccess::openBeneath(
    int anchor, const std::vector<std::string>& components) const {
    if (!std::all_of(components.begin(), components.end(), isPlainName)) {
        return tl::unexpected(std::make_error_code(std::errc::invalid_argument));
    }
    Outcome<FileHandle> here;
    for (auto next = components.begin(); next != components.end() || !*here;) {
        std::string chunk = ".";
        while (next != components.end() && chunk.size() + 1 + next->size() < PATH_MAX) chunk += '/' + *next++;
        if (chunk == "." && next != components.end()) {
            return tl::unexpected(std::make_error_code(std::errc::filename_too_long));
        }
        here = openChunk(*here ? here->get() : anchor, chunk);
        if (here) continue;
        const bool withheld = here.error() == std::errc::function_not_supported ||
                              here.error() == std::errc::operation_not_permitted;
        return withheld ? PosixFolderAccess::openBeneath(anchor, components) : std::move(here);
    }
    return here;
}

FolderAccess::Outcome<FileIdentity> LinuxFolderAccess::identify(int handle) const {
    return identityOf(handle, "", AT_EMPTY_PATH);
}

FolderAccess::Outcome<FileIdentity> LinuxFolderAccess::identify(int folder, const std::string& name) const {
    return identityOf(folder, name.c_str(), 0);
}

std::error_code LinuxFolderAccess::moveExclusively(int fromFolder, const std::string& fromName, int toFolder,
                                                   const std::string& toName) const {
    if (::renameat2(fromFolder, fromName.c_str(), toFolder, toName.c_str(), RENAME_NOREPLACE) == 0) return {};
    // EINVAL comes from file systems that cannot promise not to replace.
    if (errno != ENOSYS && errno != EINVAL) return lastError();
    return PosixFolderAccess::moveExclusively(fromFolder, fromName, toFolder, toName);
}

std::error_code LinuxFolderAccess::setMode(int handle, mode_t permissions) const {
    if (::fchmod(handle, permissions) == 0) return {};
    // A handle for names only takes no fchmod; its entry in /proc leads to that very folder.
    if (errno != EBADF) return lastError();
    return ::chmod(handlePath(handle).c_str(), permissions) == 0 ? std::error_code() : lastError();
}

bool LinuxFolderAccess::holdsMount(int handle) const {
    std::array<char, PATH_MAX> target{};
    const auto length = ::readlink(handlePath(handle).c_str(), target.data(), target.size());
    if (length <= 0) return false;
    const std::string_view folder(target.data(), static_cast<std::size_t>(length));
    std::ifstream mountInfo("/proc/self/mountinfo");
    const auto points = mountPoints(mountInfo);
    return std::any_of(points.begin(), points.end(),
                       [&](const std::string& point) { return Paths::isInside(point, folder); });
}

std::vector<std::string> mountPoints(std::istream& mountInfo) {
    std::vector<std::string> points;
    for (std::string line; std::getline(mountInfo, line);) {
        std::istringstream fields(line);
        std::string id, parent, device, root, point;
        if (fields >> id >> parent >> device >> root >> point) points.push_back(withoutOctalEscapes(point));
    }
    return points;
}

const FolderAccess& systemFolderAccess() {
    static const LinuxFolderAccess access;
    return access;
}

}  // namespace tavrel
