#include "platform/macos/ChipName.h"

#include "core/Text.h"

#include <algorithm>
#include <iterator>

namespace tavrel {

std::string chipNameOf(std::span<const std::byte> brand) {
    std::string text;
    std::transform(brand.begin(), std::find(brand.begin(), brand.end(), std::byte{0}),
                   std::back_inserter(text), [](std::byte byte) { return static_cast<char>(byte); });
    std::string name = Text::replaceInvalidUtf8(text);
    static constexpr std::string_view maker = "Apple ";
    for (std::size_t at = name.find(maker); at != std::string::npos; at = name.find(maker, at)) {
        name.erase(at, maker.size());
    }
    return name;
}

}  // namespace tavrel
