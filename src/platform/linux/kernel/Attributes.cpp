#include "platform/linux/kernel/Attributes.h"

#include "core/Text.h"
#include "platform/linux/kernel/KernelText.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tavrel::Attributes {

FileHandle open(const std::filesystem::path& file) {
    // Without O_NONBLOCK a pipe in the place of a file would hold the reader up.
    return FileHandle(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
}

std::optional<std::string> text(const FileHandle& file, std::size_t limit) {
    if (!file) return std::nullopt;
    std::string content(limit, '\0');
    std::size_t filled = 0;
    while (filled < limit) {
        const auto got =
            ::pread(file.get(), content.data() + filled, limit - filled, static_cast<off_t>(filled));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    content.resize(filled);
    return Text::trimmed(content);
}

std::optional<std::string> text(const std::filesystem::path& file, std::size_t limit) {
    return text(open(file), limit);
}

std::optional<std::int64_t> number(const FileHandle& file) {
    const auto content = text(file);
    return content ? KernelText::number<std::int64_t>(*content) : std::nullopt;
}

std::optional<std::int64_t> number(const std::filesystem::path& file) {
    return number(open(file));
}

}  // namespace tavrel::Attributes
