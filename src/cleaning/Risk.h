#pragma once

#include <optional>
#include <string_view>

namespace tavrel {

/// How much care an item needs: `safe` may be preselected and deleted, `review` wants a person's eyes and
/// always goes to the Trash.
enum class Risk { safe = 0, review = 1 };

[[nodiscard]] constexpr std::string_view rawText(Risk risk) {
    return risk == Risk::safe ? "safe" : "review";
}

[[nodiscard]] constexpr std::optional<Risk> riskFromRawValue(int value) {
    if (value == 0) return Risk::safe;
    if (value == 1) return Risk::review;
    return std::nullopt;
}

}  // namespace tavrel
