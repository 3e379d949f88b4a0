#include "platform/macos/TopReport.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

namespace tavrel::TopReport {
namespace {

constexpr std::size_t leastPieces = 5;

/// The parts between any of `separator`, empty ones left out.
std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const std::string_view part = text.substr(0, text.find(separator));
        if (!part.empty()) parts.push_back(part);
        text.remove_prefix(std::min(part.size() + 1, text.size()));
    }
    return parts;
}

/// A number that is all of `text`; never an infinite one, by which nothing could be sorted.
template <typename Number>
std::optional<Number> number(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    Number value = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || rest != end || !std::isfinite(static_cast<double>(value)))
        return std::nullopt;
    return value;
}

std::optional<ProcessInfo> row(std::string_view line) {
    const std::vector<std::string_view> pieces = split(line, ' ');
    if (pieces.size() < leastPieces) return std::nullopt;
    const std::size_t nameEnd = pieces.size() - 3;  // the name may hold blanks, the figures behind it none
    const auto pid = number<std::int32_t>(pieces.front());
    const auto cpu = number<double>(pieces[nameEnd]);
    const auto power = number<double>(pieces.back());
    if (!pid || !cpu || !power) return std::nullopt;
    std::string name(pieces[1]);
    for (std::size_t at = 2; at < nameEnd; ++at) name.append(" ").append(pieces[at]);
    return ProcessInfo{*pid, std::move(name), *cpu, memory(pieces[nameEnd + 1]), *power};
}

std::string_view withoutSigns(std::string_view text) {
    constexpr std::string_view signs = "+-";
    const std::size_t first = text.find_first_not_of(signs);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(signs) - first + 1);
}

/// Where the last character begins.
std::size_t lastCharacter(std::string_view utf8) {
    std::size_t at = utf8.size() - 1;
    while (at > 0 && (static_cast<unsigned char>(utf8[at]) & 0xC0U) == 0x80U) --at;
    return at;
}

double factor(std::string_view unit) {
    if (unit == "K") return 1LL << 10;
    if (unit == "M") return 1LL << 20;
    if (unit == "G") return 1LL << 30;
    return 1;
}

}  // namespace

std::vector<ProcessInfo> processes(std::string_view output) {
    const std::vector<std::string_view> lines = split(output, '\n');
    std::size_t first = lines.size();  // behind the head
    while (first > 0 && !lines[first - 1].starts_with("PID")) --first;
    std::vector<ProcessInfo> found;
    if (first == 0) return found;
    for (std::size_t at = first; at < lines.size(); ++at) {
        if (auto process = row(lines[at])) found.push_back(std::move(*process));
    }
    return found;
}

std::int64_t memory(std::string_view text) {
    constexpr double tooMuch = 0x1p63;  // for the result; no machine has it
    text = withoutSigns(text);
    if (text.empty()) return 0;
    const std::size_t unit = lastCharacter(text);
    if (const auto figure = number<double>(text.substr(0, unit))) {
        const double bytes = *figure * factor(text.substr(unit));
        return std::abs(bytes) < tooMuch ? static_cast<std::int64_t>(bytes) : 0;
    }
    return number<std::int64_t>(text).value_or(0);
}

}  // namespace tavrel::TopReport
