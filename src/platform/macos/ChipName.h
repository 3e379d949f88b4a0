#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace tavrel {

/// The name of the processor from the kernel's text for it, which may end with a zero: without the maker's
/// name, as in "M2 Pro".
[[nodiscard]] std::string chipNameOf(std::span<const std::byte> brand);

}  // namespace tavrel
