#include "core/DateText.h"

#include <memory>

#include <unicode/datefmt.h>
#include <unicode/unistr.h>

namespace tavrel {

std::string dateAndTime(Instant moment) {
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium, icu::DateFormat::kShort));
    if (!format) return {};
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(moment.time_since_epoch());
    icu::UnicodeString written;
    format->format(static_cast<UDate>(milliseconds.count()), written);
    std::string text;
    written.toUTF8String(text);
    return text;
}

}  // namespace tavrel
