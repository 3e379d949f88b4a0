#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace tavrel {

/// The number in the first bytes of a key's value, by its packed type: "flt ", "fpe2" without its fraction,
/// "ui8 " and "ui16". Other types have none.
[[nodiscard]] std::optional<double> smcValue(std::uint32_t dataType, const std::array<std::byte, 32>& bytes);

}  // namespace tavrel
