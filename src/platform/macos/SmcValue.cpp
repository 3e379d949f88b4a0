#include "platform/macos/SmcValue.h"

#include "platform/macos/NativeBytes.h"
#include "platform/macos/SmcRecord.h"

namespace tavrel {

std::optional<double> smcValue(std::uint32_t dataType, const std::array<std::byte, 32>& bytes) {
    const auto first = std::to_integer<std::uint32_t>(bytes[0]);
    const auto firstTwo = first << 8 | std::to_integer<std::uint32_t>(bytes[1]);
    switch (dataType) {
        case SmcRecord::packed("flt "):
            return nativeAt<float>(bytes, 0);
        case SmcRecord::packed("fpe2"):
            return firstTwo >> 2;
        case SmcRecord::packed("ui8 "):
            return first;
        case SmcRecord::packed("ui16"):
            return firstTwo;
        default:
            return std::nullopt;
    }
}

}  // namespace tavrel
