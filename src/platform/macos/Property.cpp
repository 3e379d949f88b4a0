#include "platform/macos/Property.h"

namespace tavrel {

// Not inline: the compiler would look into what it moves and warn of members that are not there.
Property::Property(Dictionary value) : value_(std::move(value)) {}

const Property& Property::operator[](std::string_view key) const {
    static const Property nothing;
    const auto* dictionary = std::get_if<Dictionary>(&value_);
    if (dictionary == nullptr) return nothing;
    const auto found = dictionary->find(key);
    return found == dictionary->end() ? nothing : found->second;
}

std::optional<bool> Property::boolean() const {
    const auto* value = std::get_if<bool>(&value_);
    return value == nullptr ? std::nullopt : std::optional(*value);
}

std::optional<double> Property::number() const {
    if (const auto* whole = std::get_if<std::int64_t>(&value_)) return static_cast<double>(*whole);
    if (const auto* fraction = std::get_if<double>(&value_)) return *fraction;
    return std::nullopt;
}

std::optional<std::int64_t> Property::integer() const {
    if (const auto* whole = std::get_if<std::int64_t>(&value_)) return *whole;
    const auto* fraction = std::get_if<double>(&value_);
    constexpr double limit = 9223372036854775808.0;  // 2^63
    if (fraction == nullptr || !(*fraction >= -limit && *fraction < limit)) return std::nullopt;
    return static_cast<std::int64_t>(*fraction);
}

std::optional<std::uint64_t> Property::counter() const {
    const auto value = integer();
    return value ? std::optional(static_cast<std::uint64_t>(*value)) : std::nullopt;
}

}  // namespace tavrel
