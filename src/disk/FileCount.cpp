#include "disk/FileCount.h"

#include "core/Phrase.h"

namespace tavrel::FileCount {
namespace {

constexpr std::int64_t thousand = 1'000;
constexpr std::int64_t million = 1'000'000;

/// With the decimal sign of the user's language.
std::string oneDecimal(std::int64_t files, std::int64_t unit) {
    std::string number = fmt::format("{:.1f}", static_cast<double>(files) / static_cast<double>(unit));
    number.replace(number.find('.'), 1, Text::localized("."));
    return number;
}

}  // namespace

std::string format(std::int64_t files) {
    if (files < thousand) return fmt::format("{}", files);
    if (files < 10 * thousand) return oneDecimal(files, thousand) + "k";
    if (files < million) return fmt::format("{:.0f}k", static_cast<double>(files) / thousand);
    return oneDecimal(files, million) + "M";
}

}  // namespace tavrel::FileCount
