#include "platform/linux/kernel/KernelFile.h"

#include "platform/linux/kernel/Attributes.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace tavrel {

namespace {

constexpr std::size_t firstBytes = 8192;

}  // namespace

std::optional<std::string_view> KernelFile::read() {
    if (const auto text = readOpened()) return text;
    handle_ = Attributes::open(path_);
    return readOpened();
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
