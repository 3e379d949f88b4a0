#include "cli/RunList.h"

#include "cleaning/CleanMode.h"
#include "core/ByteCount.h"
#include "core/Phrase.h"

#include <algorithm>
#include <chrono>

#include <fmt/chrono.h>

namespace tavrel::cli::RunList {

std::string row(const History::Entry& entry) {
    constexpr std::size_t actionColumns = 10;
    constexpr std::size_t countColumns = 12;
    constexpr std::size_t sizeColumns = 10;
    const auto seconds = std::chrono::floor<std::chrono::seconds>(entry.date);
    const std::string count = counted("{} item", "{} items", static_cast<unsigned long>(entry.count));
    return fmt::format("{:%Y-%m-%d %H:%M}  {:<{}}  {:>{}}  {:>{}}",
                       fmt::localtime(seconds.time_since_epoch().count()),
                       Text::escapedForDisplay(CleanModes::knownWord(entry.action)), actionColumns, count,
                       countColumns, byteCount(entry.bytes), sizeColumns);
}

std::string shortId(const History::Entry& entry, const std::vector<History::Entry>& entries) {
    std::size_t length = 8;
    const auto sharing = [&](const History::Entry& other) {
        return Text::lowercased(other.id).starts_with(Text::lowercased(entry.id.substr(0, length)));
    };
    while (length < entry.id.size() && std::count_if(entries.begin(), entries.end(), sharing) > 1) ++length;
    return entry.id.substr(0, length);
}

Restorer restorer(const Session& session, SystemTools& tools) {
    return {tools.trash(), session.profile().scan.volumeTrashes};
}

}  // namespace tavrel::cli::RunList
