#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace tavrel {

/// A value as the services of a Mac describe themselves: a text, a number, a yes or no, a dictionary of such
/// values, a kind that is not read here, or nothing at all. Asking for a kind that it is not gives
/// no value, so that a chain of questions needs one test, at its end.
class Property {
  public:
    using Dictionary = std::map<std::string, Property, std::less<>>;
    struct Other {};  // lists, bytes, dates

    Property() = default;
    Property(bool value) : value_(value) {}
    Property(int value) : value_(std::int64_t{value}) {}
    Property(std::int64_t value) : value_(value) {}
    Property(double value) : value_(value) {}
    Property(const char* value) : value_(std::string(value)) {}
    Property(std::string value) : value_(std::move(value)) {}
    Property(Dictionary value);
    Property(Other value) : value_(value) {}

    [[nodiscard]] bool exists() const { return !std::holds_alternative<std::monostate>(value_); }

    /// The entry of a dictionary; nothing where there is none or this is no dictionary.
    [[nodiscard]] const Property& operator[](std::string_view key) const;

    [[nodiscard]] const std::string* text() const { return std::get_if<std::string>(&value_); }
    [[nodiscard]] std::optional<bool> boolean() const;
    [[nodiscard]] std::optional<double> number() const;
    /// A number without its fraction.
    [[nodiscard]] std::optional<std::int64_t> integer() const;
    /// A number as a counter of 64 bits without a sign: one past 2^63 - 1 comes as a negative number.
    [[nodiscard]] std::optional<std::uint64_t> counter() const;

  private:
    std::variant<std::monostate, bool, std::int64_t, double, std::string, Dictionary, Other> value_;
};

}  // namespace tavrel
