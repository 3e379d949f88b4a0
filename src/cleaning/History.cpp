#include "cleaning/History.h"

#include "core/Files.h"
#include "core/RandomBytes.h"

#include <array>
#include <cstddef>
#include <ctime>
#include <limits>
#include <optional>
#include <string_view>
#include <unistd.h>
#include <utility>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace tavrel::History {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t maxEntries = 500;

/// Only a date that `dateText` writes the same way is taken, so that no field is out of its range.
std::optional<Instant> parsedDate(const std::string& text) {
    std::tm parts{};
    if (::strptime(text.c_str(), "%Y-%m-%dT%H:%M:%SZ", &parts) == nullptr) return std::nullopt;
    const Instant date = instantOf(::timegm(&parts), 0);
    return dateText(date) == text ? std::optional(date) : std::nullopt;
}

bool isIdentifier(std::string_view text) {
    constexpr std::string_view shape = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    constexpr std::string_view digits = "0123456789ABCDEFabcdef";
    if (text.size() != shape.size()) return false;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const bool fits = shape[i] == '-' ? text[i] == '-' : digits.find(text[i]) != std::string_view::npos;
        if (!fits) return false;
    }
    return true;
}

/// The value under `key` if it is there with the type T; numbers have to be whole and in range.
template <typename T>
std::optional<T> field(const Json& object, const char* key) {
    const auto found = object.find(key);
    if (found == object.end()) return std::nullopt;
    if constexpr (std::is_same_v<T, std::string>) {
        if (!found->is_string()) return std::nullopt;
    } else {
        if (!found->is_number_integer()) return std::nullopt;
        const bool tooLarge = found->is_number_unsigned() &&
                              found->get<std::uint64_t>() > std::numeric_limits<std::int64_t>::max();
        if (tooLarge) return std::nullopt;
    }
    return found->get<T>();
}

std::optional<std::vector<std::string>> texts(const Json& object, const char* key) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_array()) return std::nullopt;
    std::vector<std::string> all;
    for (const auto& value : *found) {
        if (!value.is_string()) return std::nullopt;
        all.push_back(value.get<std::string>());
    }
    return all;
}

std::vector<TrashedItem> trashed(const Json& object) {
    const auto found = object.find("trashed");
    if (found == object.end() || !found->is_array()) return {};
    std::vector<TrashedItem> all;
    for (const auto& value : *found) {
        if (!value.is_object()) return {};
        auto path = field<std::string>(value, "path");
        auto place = field<std::string>(value, "place");
        const auto size = field<std::int64_t>(value, "size");
        if (!path || !place || !size) return {};
        all.push_back({std::move(*path), std::move(*place), *size});
    }
    return all;
}

std::optional<Entry> decoded(const Json& object) {
    if (!object.is_object()) return std::nullopt;
    auto id = field<std::string>(object, "id");
    const auto dateOf = field<std::string>(object, "date");
    auto action = field<std::string>(object, "action");
    const auto count = field<std::int64_t>(object, "count");
    const auto bytes = field<std::int64_t>(object, "bytes");
    auto paths = texts(object, "paths");
    const auto date = dateOf ? parsedDate(*dateOf) : std::nullopt;
    if (!id || !isIdentifier(*id) || !date || !action || !count || !bytes || !paths) return std::nullopt;
    return Entry{std::move(*id),    *date,          std::move(*action), *count, *bytes,
                 std::move(*paths), trashed(object)};
}

Json encoded(const Entry& entry) {
    Json object = {
        {"id", entry.id},       {"date", dateText(entry.date)}, {"action", entry.action},
        {"count", entry.count}, {"bytes", entry.bytes},         {"paths", entry.paths},
    };
    for (const TrashedItem& item : entry.trashed) {
        object["trashed"].push_back({{"path", item.path}, {"place", item.place}, {"size", item.size}});
    }
    return object;
}

std::optional<std::vector<Entry>> decodedAll(std::string_view content) {
    const auto json = Json::parse(content, nullptr, /*allow_exceptions=*/false);
    if (!json.is_array()) return std::nullopt;
    std::vector<Entry> entries;
    for (const auto& value : json) {
        auto entry = decoded(value);
        if (!entry) return std::nullopt;
        entries.push_back(std::move(*entry));
    }
    return entries;
}

}  // namespace

std::string dateText(Instant date) {
    using namespace std::chrono;
    const auto day = floor<days>(date);
    const year_month_day calendar(day);
    const hh_mm_ss time(floor<seconds>(date - day));
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(calendar.year()),
                       static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
                       time.hours().count(), time.minutes().count(), time.seconds().count());
}

Record load(const std::filesystem::path& file) {
    const auto content = Files::read(file);
    if (!content) {
        const bool missing = content.error() == std::errc::no_such_file_or_directory;
        return {.state = missing ? State::missing : State::damaged, .entries = {}};
    }
    auto entries = decodedAll(*content);
    if (!entries) return {.state = State::damaged, .entries = {}};
    return {.state = State::sound, .entries = std::move(*entries)};
}

std::error_code record(const std::filesystem::path& file, const Entry& entry) {
    auto [state, entries] = load(file);
    if (state == State::damaged && !Files::setAside(file)) return std::make_error_code(std::errc::io_error);
    entries.insert(entries.begin(), entry);
    if (entries.size() > maxEntries) entries.resize(maxEntries);

    std::error_code ignored;  // the write decides
    std::filesystem::create_directories(file.parent_path(), ignored);
    return Files::writeAtomically(file, encode(entries));
}

void clear(const std::filesystem::path& file) {
    ::unlink(file.c_str());
}

std::string newIdentifier() {
    auto bytes = randomBytes(16);
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0FU) | 0x40U);  // version 4: random
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3FU) | 0x80U);  // the variant of RFC 4122
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        text += fmt::format("{:02X}", bytes[i]);
    }
    return text;
}

std::string encode(const std::vector<Entry>& entries) {
    Json all = Json::array();
    for (const auto& entry : entries) all.push_back(encoded(entry));
    // Bytes that are no UTF-8 would make the whole file unreadable.
    return all.dump(2, ' ', /*ensure_ascii=*/false, Json::error_handler_t::replace) + '\n';
}

}  // namespace tavrel::History
