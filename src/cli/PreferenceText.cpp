#include "cli/PreferenceText.h"

#include "cli/Json.h"
#include "core/Phrase.h"
#include "core/PreferenceValues.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include <nlohmann/json.hpp>

namespace tavrel::cli::PreferenceText {

namespace {

using Parsed = tl::expected<UserDefaults::Value, std::string>;
using Text::localized;

constexpr std::int64_t mostStaleDays = 365;

Parsed parseBoolean(std::string_view text) {
    if (text == "true" || text == "on") return UserDefaults::Value(true);
    if (text == "false" || text == "off") return UserDefaults::Value(false);
    return tl::unexpected(localized("the value must be true or false"));
}

Parsed parseDays(std::string_view text) {
    std::int64_t days = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), days);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    if (whole && days >= 1 && days <= mostStaleDays) return UserDefaults::Value(days);
    return tl::unexpected(phrase("the value must be a whole number from 1 to {}", mostStaleDays));
}

/// A property list cannot hold control characters, and a NUL would silently end a path early.
bool canBeStored(const std::string& text) {
    return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

/// A relative folder would match nothing: what its user thinks protected would not be.
bool namesFolder(const std::string& text) {
    return text.starts_with('/') || text == "~" || text.starts_with("~/");
}

bool fits(std::string_view key, const std::string& text) {
    if (key == "menuBarMetrics") return menuBarMetric(text).has_value();
    if (key == "protectedPaths" || key == "projectRoots") return canBeStored(text) && namesFolder(text);
    return canBeStored(text);
}

Parsed parseTexts(std::string_view key, std::string_view text) {
    const auto array = Json::Value::parse(text, nullptr, false);
    const bool areTexts = array.is_array() && std::all_of(array.begin(), array.end(),
                                                          [](const auto& each) { return each.is_string(); });
    if (!areTexts) return tl::unexpected(localized("the value must be a JSON array of texts"));
    auto texts = array.get<UserDefaults::Texts>();
    for (const std::string& each : texts) {
        if (!fits(key, each))
            return tl::unexpected(phrase("\"{}\" does not fit this setting", Text::escapedForDisplay(each)));
    }
    return UserDefaults::Value(std::move(texts));
}

}  // namespace

Parsed parse(std::string_view key, std::string_view text) {
    const auto present = PreferenceValues().value(key);
    if (present && std::holds_alternative<bool>(*present)) return parseBoolean(text);
    if (present && std::holds_alternative<std::int64_t>(*present)) return parseDays(text);
    return parseTexts(key, text);
}

}  // namespace tavrel::cli::PreferenceText
