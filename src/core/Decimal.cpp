#include "core/Decimal.h"

#include "core/Text.h"

#include <fmt/format.h>

namespace tavrel {

std::string oneDecimal(double value) {
    std::string number = fmt::format("{:.1f}", value);
    if (const auto sign = number.find('.'); sign != std::string::npos)
        number.replace(sign, 1, Text::localized("."));
    return number;
}

}  // namespace tavrel
