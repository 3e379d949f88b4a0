#include "platform/linux/KernelFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tavrel {

namespace {

constexpr std::size_t firstBytes = 8192;

}  // namespace

std::optional<std::string_view> KernelFile::read() {
    if (!handle_ && (!opened_ || lost_ == Lost::reopen)) open();
    auto text = readOpened();
    if (text || !handle_) return text;
    handle_.close();
    if (lost_ == Lost::tell) return std::nullopt;
    open();
    return readOpened();
}

void KernelFile::open() {
    opened_ = true;
    // Without O_NONBLOCK a pipe in the place of a file would hold the reader up.
    handle_ = FileHandle(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
}

std::optional<std::string_view> KernelFile::readOpened() {
    if (!handle_) return std::nullopt;
    std::size_t filled = 0;
    // Long tables come a page or so at a time, so that only a read of nothing tells the end.
    while (filled < maximumBytes) {
        if (filled == buffer_.size()) {
            buffer_.resize(std::min(maximumBytes, std::max(firstBytes, buffer_.size() * 2)));
        }
        const auto got = ::pread(handle_.get(), buffer_.data() + filled, buffer_.size() - filled,
                                 static_cast<off_t>(filled));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    return std::string_view(buffer_.data(), filled);
}

}  // namespace tavrel
