#include "platform/linux/kernel/KernelText.h"

#include <algorithm>
#include <cmath>

namespace tavrel::KernelText {

std::string_view takeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

std::string_view takeWord(std::string_view& text) {
    constexpr std::string_view blanks = " \t\n";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(blanks));
    text.remove_prefix(word.size());
    return word;
}

void skipWords(std::string_view& text, int count) {
    for (; count > 0; --count) static_cast<void>(takeWord(text));
}

std::optional<double> decimal(std::string_view word) {
    double value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

}  // namespace tavrel::KernelText
