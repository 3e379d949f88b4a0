#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string_view>

/// The tables that the kernel writes into its files: lines of words. Everything takes any bytes and allocates
/// nothing.
namespace tavrel::KernelText {

/// Takes the next line off `text`, without its newline. What stands after the last newline is a line too.
[[nodiscard]] std::string_view takeLine(std::string_view& text);

/// Takes the next word off `text`, blanks before it passed over. Empty when there is none left.
[[nodiscard]] std::string_view takeWord(std::string_view& text);

void skipWords(std::string_view& text, int count);

/// The whole word as a number; nothing for anything else, and for what does not fit.
template <std::integral Number>
[[nodiscard]] std::optional<Number> number(std::string_view word, int base = 10) {
    Number value{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, base);
    if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
    return value;
}

/// A finite number, with or without a fraction.
[[nodiscard]] std::optional<double> decimal(std::string_view word);

}  // namespace tavrel::KernelText
