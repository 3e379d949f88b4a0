#pragma once

#include <string>

namespace tavrel {

/// A number with one decimal, behind the decimal sign of the user's language.
[[nodiscard]] std::string oneDecimal(double value);

}  // namespace tavrel
