#include "core/Files.h"

#include "core/FileHandle.h"
#include "core/Paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel::Files {

namespace {

std::optional<struct stat> facts(const Path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return std::nullopt;
    return status;
}

bool hasType(const Path& path, mode_t type) {
    const auto status = facts(path);
    return status && (status->st_mode & S_IFMT) == type;
}

}  // namespace

bool exists(const Path& path) {
    return ::access(path.c_str(), F_OK) == 0;
}
bool isFolder(const Path& path) {
    return hasType(path, S_IFDIR);
}
bool isLink(const Path& path) {
    return hasType(path, S_IFLNK);
}
bool isRegular(const Path& path) {
    return hasType(path, S_IFREG);
}

std::optional<Instant> modificationDate(const Path& path) {
    const auto status = facts(path);
    if (!status) return std::nullopt;
    return instantOf(status->st_mtim.tv_sec, status->st_mtim.tv_nsec);
}

std::optional<std::pair<dev_t, ino_t>> identifier(const Path& path) {
    const auto status = facts(path);
    if (!status) return std::nullopt;
    return std::pair{status->st_dev, status->st_ino};
}

std::vector<std::string> names(const Path& folder, Hidden hidden) {
    std::vector<std::string> found;
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(folder.c_str()), &::closedir);
    if (!stream) return found;
    while (const dirent* entry = ::readdir(stream.get())) {
        const std::string_view name = static_cast<const char*>(entry->d_name);
        if (name == "." || name == "..") continue;
        if (hidden == Hidden::skip && name.front() == '.') continue;
        found.emplace_back(name);
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<Path> matching(const Path& folder, std::string_view pattern) {
    std::vector<Path> found{folder};
    for (const std::string& part : Paths::components(pattern)) {
        std::vector<Path> deeper;
        for (const Path& here : found) {
            if (part.find('*') == std::string::npos) {
                if (identifier(here / part)) deeper.push_back(here / part);
                continue;
            }
            for (const std::string& name : names(here)) {
                if (::fnmatch(part.c_str(), name.c_str(), 0) == 0) deeper.push_back(here / name);
            }
        }
        found = std::move(deeper);
    }
    return found;
}

bool beginsWith(const Path& file, std::string_view text) {
    if (!isRegular(file)) return false;
    const FileHandle handle(::open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    std::string begin(text.size(), '\0');
    return handle && ::read(handle.get(), begin.data(), begin.size()) == static_cast<ssize_t>(text.size()) &&
           begin == text;
}

tl::expected<std::string, std::error_code> read(const Path& file) {
    const FileHandle handle(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (!handle) return tl::unexpected(lastError());
    std::string content;
    std::array<char, 65536> buffer;
    while (true) {
        const ssize_t count = ::read(handle.get(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return tl::unexpected(lastError());
        if (count == 0) return content;
        content.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

std::error_code writeAtomically(const Path& file, std::string_view content) {
    std::error_code failed;
    const Path target = std::filesystem::weakly_canonical(file, failed);
    if (failed) return failed;
    if (Files::exists(target) && !isRegular(target)) return std::make_error_code(std::errc::invalid_argument);
    std::string temporary = target.native() + ".XXXXXX";
    FileHandle handle(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!handle) return lastError();
    failed = writeThrough(handle.get(), content);
    handle.close();
    if (!failed && ::rename(temporary.c_str(), target.c_str()) != 0) failed = lastError();
    if (failed) ::unlink(temporary.c_str());
    return failed;
}

std::optional<Path> setAside(const Path& file) {
    constexpr int mostCopies = 1000;
    for (int copy = 1; copy <= mostCopies; ++copy) {
        Path aside = file.native() + ".damaged" + (copy == 1 ? "" : "-" + std::to_string(copy));
        // A hard link refuses to replace what is there, so no earlier copy is ever lost.
        if (::link(file.c_str(), aside.c_str()) != 0) {
            if (errno == EEXIST) continue;
            return std::nullopt;
        }
        if (::unlink(file.c_str()) != 0) return std::nullopt;
        return aside;
    }
    return std::nullopt;
}

}  // namespace tavrel::Files
