#include "cleaning/TrashNote.h"

#include "core/FileHandle.h"

#include <cerrno>
#include <charconv>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/chrono.h>

namespace tavrel {

namespace {

/// The number that all of `text` is in this base.
template <typename Number>
std::optional<Number> number(std::string_view text, int base) {
    Number value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<std::string> percentDecoded(std::string_view text) {
    constexpr std::size_t escapeLength = 3;
    std::string bytes;
    while (!text.empty()) {
        const bool escaped = text.front() == '%';
        const std::size_t length = escaped ? escapeLength : 1;
        if (text.size() < length) return std::nullopt;
        const auto byte = escaped ? number<unsigned char>(text.substr(1, 2), 16)
                                  : std::optional(static_cast<unsigned char>(text.front()));
        if (!byte || *byte == 0) return std::nullopt;
        bytes += static_cast<char>(*byte);
        text.remove_prefix(length);
    }
    return bytes;
}

/// "2026-11-22T23:23:05", and whatever stands behind that.
std::optional<std::chrono::local_seconds> dateOf(std::string_view text) {
    using namespace std::chrono;
    constexpr std::string_view form = "0000-00-00T00:00:00";
    if (text.size() < form.size()) return std::nullopt;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (form[i] == '0' ? !digit : text[i] != form[i]) return std::nullopt;
    }
    const auto part = [&](std::size_t at, std::size_t length) {
        return number<unsigned>(text.substr(at, length), 10).value_or(0);
    };
    const year_month_day calendar(year(static_cast<int>(part(0, 4))), month(part(5, 2)), day(part(8, 2)));
    const unsigned hour = part(11, 2);
    const unsigned minute = part(14, 2);
    const unsigned second = part(17, 2);
    if (!calendar.ok() || hour > 23 || minute > 59 || second > 60) return std::nullopt;
    return local_days(calendar) + hours(hour) + minutes(minute) + seconds(second);
}

}  // namespace

std::chrono::local_seconds localTime(Instant moment) {
    using namespace std::chrono;
    const std::time_t seconds = floor<std::chrono::seconds>(moment).time_since_epoch().count();
    std::tm local{};
    ::localtime_r(&seconds, &local);
    return local_days(year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday) +
           hours(local.tm_hour) + minutes(local.tm_min) + std::chrono::seconds(local.tm_sec);
}

std::string noteDate(std::chrono::local_seconds moment) {
    return fmt::format("{:%FT%T}", std::chrono::sys_seconds(moment.time_since_epoch()));
}

std::optional<TrashNote> TrashNote::parsed(std::string_view content) {
    const auto nextLine = [&content] {
        const auto end = content.find('\n');
        const auto line = content.substr(0, end);
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
        return line;
    };
    constexpr std::string_view pathKey = "Path=";
    constexpr std::string_view dateKey = "DeletionDate=";
    if (nextLine() != "[Trash Info]") return std::nullopt;

    std::optional<std::string_view> path;
    std::optional<std::string_view> date;
    while (!content.empty()) {
        const auto line = nextLine();
        if (line.starts_with('[')) break;
        // Where a key stands twice the first one counts.
        if (!path && line.starts_with(pathKey)) path = line.substr(pathKey.size());
        if (!date && line.starts_with(dateKey)) date = line.substr(dateKey.size());
    }
    auto bytes = path ? percentDecoded(*path) : std::nullopt;
    if (!bytes || bytes->empty()) return std::nullopt;
    return TrashNote{.path = std::move(*bytes), .moved = date ? dateOf(*date) : std::nullopt};
}

std::optional<TrashNote> TrashNote::read(int folder, const std::string& name) {
    // Opening a pipe that somebody put there would wait for its other end.
    const FileHandle file(::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;

    if (static_cast<std::size_t>(status.st_size) > maxSize) return std::nullopt;
    std::string content(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t length = 0;
    while (length < content.size()) {
        const auto got = ::read(file.get(), content.data() + length, content.size() - length);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
    }
    if (length == content.size()) return std::nullopt;  // it grows
    content.resize(length);
    return parsed(content);
}

}  // namespace tavrel
