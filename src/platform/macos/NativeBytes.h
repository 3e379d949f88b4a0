#pragma once

#include <cstddef>
#include <cstring>
#include <span>
#include <type_traits>

namespace tavrel {

/// The number that stands at `offset`, in this machine's own byte order and on any boundary. The caller has
/// seen to it that the bytes reach that far.
template <typename Number>
[[nodiscard]] Number nativeAt(std::span<const std::byte> bytes, std::size_t offset) {
    static_assert(std::is_trivially_copyable_v<Number>);
    Number number{};
    std::memcpy(&number, bytes.subspan(offset, sizeof number).data(), sizeof number);
    return number;
}

}  // namespace tavrel
