#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {

/// Unpredictable bytes from the system's generator.
[[nodiscard]] std::vector<std::uint8_t> randomBytes(std::size_t count);

/// A hidden file name that cannot be guessed and is not in use: for what is out of sight only for a
/// moment.
[[nodiscard]] std::string privateName();

}  // namespace tavrel
