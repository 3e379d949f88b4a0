#include "disk/FileCount.h"

#include "core/Decimal.h"
#include "core/Phrase.h"

#include <algorithm>

#include <fmt/format.h>

namespace tavrel::FileCount {
namespace {

constexpr std::int64_t thousand = 1'000;
constexpr std::int64_t million = 1'000'000;

}  // namespace

std::string format(std::int64_t files) {
    if (files < thousand) return fmt::format("{}", files);
    if (files < 10 * thousand) return oneDecimal(static_cast<double>(files) / thousand) + "k";
    if (files < million) return fmt::format("{:.0f}k", static_cast<double>(files) / thousand);
    return oneDecimal(static_cast<double>(files) / million) + "M";
}

std::string text(std::int64_t files) {
    return counted("{1} file", "{1} files", static_cast<unsigned long>(std::max<std::int64_t>(files, 0)),
                   format(files));
}

}  // namespace tavrel::FileCount
