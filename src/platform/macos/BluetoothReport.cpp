#include "platform/macos/BluetoothReport.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include <nlohmann/json.hpp>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace tavrel::BluetoothReport {

namespace {

using Json = nlohmann::ordered_json;

/// The characters that are numbers in any script, half signs and the like among them.
std::string numbersIn(std::string_view utf8) {
    std::string numbers;
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t start = at;
        UChar32 character = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // inside ICU's macro
        U8_NEXT(utf8.data(), at, utf8.size(), character);
#pragma GCC diagnostic pop
        if (u_getIntPropertyValue(character, UCHAR_NUMERIC_TYPE) != U_NT_NONE) {
            numbers += utf8.substr(start, at - start);
        }
    }
    return numbers;
}

/// "73%" gives 73. A number in other than plain digits is none that could be shown.
std::optional<std::int64_t> level(const Json& value) {
    if (!value.is_string()) return std::nullopt;
    const std::string numbers = numbersIn(value.get_ref<const std::string&>());
    std::int64_t parsed = 0;
    const char* end = numbers.data() + numbers.size();
    const auto [stop, error] = std::from_chars(numbers.data(), end, parsed);
    return error == std::errc() && stop == end ? std::optional(parsed) : std::nullopt;
}

std::optional<std::int64_t> lowestLevel(const Json& properties) {
    std::optional<std::int64_t> lowest;
    for (const auto& [key, value] : properties.items()) {
        if (key.find("batteryLevel") == std::string::npos) continue;
        const auto found = level(value);
        if (found) lowest = std::min(*found, lowest.value_or(*found));
    }
    return lowest;
}

/// The list under `key`; null where there is none.
const Json* listUnder(const Json& object, const char* key) {
    const auto found = object.find(key);  // the end for what is no object
    return found != object.end() && found->is_array() ? &*found : nullptr;
}

}  // namespace

std::vector<Sensors::Accessory> batteries(const std::string& json) {
    const Json report = Json::parse(json, nullptr, false);
    const Json* controllers = listUnder(report, "SPBluetoothDataType");
    if (controllers == nullptr || controllers->empty()) return {};
    const Json* devices = listUnder(controllers->front(), "device_connected");
    if (devices == nullptr) return {};

    std::vector<Sensors::Accessory> batteries;
    for (const Json& device : *devices) {
        if (!device.is_object()) return {};
        for (const auto& [name, properties] : device.items()) {
            if (!properties.is_object()) continue;
            if (const auto lowest = lowestLevel(properties)) batteries.push_back({name, *lowest});
        }
    }
    return batteries;
}

}  // namespace tavrel::BluetoothReport
