#include "platform/linux/Attributes.h"

#include "core/FileHandle.h"
#include "core/Text.h"
#include "platform/linux/KernelText.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tavrel::Attributes {

std::optional<std::string> text(const std::filesystem::path& file, std::size_t limit) {
    const FileHandle handle(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!handle) return std::nullopt;
    std::string content(limit, '\0');
    std::size_t filled = 0;
    while (filled < limit) {
        const auto got = ::read(handle.get(), content.data() + filled, limit - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    content.resize(filled);
    return Text::trimmed(content);
}

std::optional<std::int64_t> number(const std::filesystem::path& file) {
    const auto content = text(file);
    return content ? KernelText::number<std::int64_t>(*content) : std::nullopt;
}

}  // namespace tavrel::Attributes
