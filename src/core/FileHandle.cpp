#include "core/FileHandle.h"

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

}  // namespace tavrel
