#include "cli/Arguments.h"

#include "core/Files.h"
#include "core/Phrase.h"

#include <charconv>
#include <limits>
#include <string_view>
#include <system_error>

namespace tavrel::cli::Arguments {

std::filesystem::path workingFolder() {
    std::error_code gone;
    return std::filesystem::current_path(gone);
}

std::optional<std::int64_t> bytes(const std::string& text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || number < 0) return std::nullopt;
    std::string unit = Text::lowercased(std::string_view(rest, end));
    if (unit.ends_with('b')) unit.pop_back();
    std::int64_t step = 1000;
    if (unit.size() == 2 && unit.ends_with('i')) {
        unit.pop_back();
        step = 1024;
    }
    constexpr std::string_view units = "kmgt";
    if (unit.size() > 1 || units.find(unit) == std::string_view::npos) return std::nullopt;
    const std::size_t powers = unit.empty() ? 0 : units.find(unit) + 1;
    for (std::size_t i = 0; i < powers; ++i) {
        if (number > std::numeric_limits<std::int64_t>::max() / step) return std::nullopt;
        number *= step;
    }
    return number;
}

bool exists(const std::string& path, Console& console) {
    if (Files::identifier(path)) return true;
    console.warn(phrase("\"{}\" does not exist", Text::escapedForDisplay(path)));
    return false;
}

}  // namespace tavrel::cli::Arguments
