#include "cleaning/TrashNames.h"

#include "core/Paths.h"

#include <algorithm>

namespace tavrel::TrashNames {

namespace {

/// What is longer behind a dot is no extension that anyone would miss.
constexpr std::size_t longestExtension = 32;

/// At most `length` bytes of `text`, ending before a character that would be cut in two.
std::string_view cut(std::string_view text, std::size_t length) {
    if (text.size() <= length) return text;
    const auto continues = [&](std::size_t at) {
        return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
    };
    const std::size_t lowest =
        length > 3 ? length - 3 : 0;  // no character has more than 3 bytes behind its first
    std::size_t end = length;
    while (end > lowest && continues(end)) --end;
    return text.substr(0, continues(end) ? length : end);
}

}  // namespace

std::string numbered(std::string_view name, unsigned number, std::size_t room) {
    const std::string extension = Paths::extension(name);
    std::string tail = extension.empty() || extension.size() > longestExtension ? "" : "." + extension;
    const std::string_view stem = name.substr(0, name.size() - tail.size());
    if (number > 1) tail.insert(0, " " + std::to_string(number));
    return std::string(cut(stem, room - std::min(room, tail.size()))) + tail;
}

}  // namespace tavrel::TrashNames
