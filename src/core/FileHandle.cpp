#include "core/FileHandle.h"

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace tavrel {

FileHandle& FileHandle::operator=(FileHandle&& other) noexcept {
    if (this != &other) {
        close();
        descriptor_ = other.release();
    }
    return *this;
}

int FileHandle::release() {
    return std::exchange(descriptor_, -1);
}

void FileHandle::close() {
    if (descriptor_ >= 0) ::close(release());
}

std::error_code lastError() {
    return {errno, std::generic_category()};
}

std::error_code writeThrough(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return lastError();
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::fsync(file) == 0 ? std::error_code() : lastError();
}

}  // namespace tavrel
