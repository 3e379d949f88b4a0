#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavrel {

/// What the System Management Controller of a Mac is asked with and answers in: 80 bytes both ways, numbers
/// in the machine's own byte order, the value in the controller's. Here are the fields that anyone uses; all
/// other bytes are zero on the way out and not looked at on the way in.
struct SmcRecord {
    using Bytes = std::array<std::byte, 80>;

    struct KeyInfo {
        std::uint32_t dataSize = 0;  // bytes of the key's value
        std::uint32_t dataType = 0;  // four characters, packed as a key is
    };

    std::uint32_t key = 0;
    KeyInfo keyInfo;
    std::uint8_t result = 0;  // 0 on success
    std::uint8_t data8 = 0;   // the command
    std::array<std::byte, 32> bytes{};

    // Values of `data8`.
    static constexpr std::uint8_t readValue = 5;
    static constexpr std::uint8_t readKeyInfo = 9;

    /// Four characters as a number, the first in the highest byte.
    [[nodiscard]] static constexpr std::uint32_t packed(std::string_view characters) {
        std::uint32_t number = 0;
        for (const char character : characters) number = number << 8 | static_cast<unsigned char>(character);
        return number;
    }

    [[nodiscard]] Bytes encoded() const;
    [[nodiscard]] static SmcRecord decoded(const Bytes& record);
};

}  // namespace tavrel
