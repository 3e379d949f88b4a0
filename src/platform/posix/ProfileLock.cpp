#include "platform/posix/ProfileLock.h"

#include "core/FileHandle.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

namespace tavrel::ProfileLock {
namespace {

using Path = std::filesystem::path;

bool isRecordLocked(const Path& file) {
    const FileHandle handle(::open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!handle) return errno != ENOENT && errno != ENOTDIR;
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return ::fcntl(handle.get(), F_GETLK, &lock) != 0 || lock.l_type != F_UNLCK;
}

/// The text of a link; nothing where there is none. A file of that name is no lock.
std::optional<std::string> linkText(const Path& link) {
    std::error_code failed;
    const Path text = std::filesystem::read_symlink(link, failed);
    const bool none = failed == std::errc::no_such_file_or_directory ||
                      failed == std::errc::not_a_directory || failed == std::errc::invalid_argument;
    if (none) return std::nullopt;
    return failed ? std::string() : text.native();
}

bool runs(std::string_view number) {
    pid_t process = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), process);
    if (error != std::errc() || end != number.data() + number.size() || process < 1) return true;
    return ::kill(process, 0) == 0 || errno != ESRCH;
}

bool isThisHost(std::string_view host) {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 && host == name.data();
}

bool holdsMozillaLink(const Path& link) {
    const auto text = linkText(link);
    if (!text) return false;
    const auto at = text->rfind(":+");
    return at == std::string::npos || runs(std::string_view(*text).substr(at + 2));
}

bool holdsChromiumLink(const Path& link) {
    const auto text = linkText(link);
    if (!text) return false;
    const auto at = text->rfind('-');
    if (at == std::string::npos || !isThisHost(std::string_view(*text).substr(0, at))) return true;
    return runs(std::string_view(*text).substr(at + 1));
}

}  // namespace

bool isHeld(const Path& profile) {
    return isRecordLocked(profile / ".parentlock") || holdsMozillaLink(profile / "lock") ||
           holdsChromiumLink(profile / "SingletonLock");
}

}  // namespace tavrel::ProfileLock
