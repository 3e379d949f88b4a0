#include "core/PreferenceValues.h"

#include "core/Files.h"
#include "core/Paths.h"
#include "core/Text.h"

#include <algorithm>
#include <variant>

namespace tavrel {
namespace {

struct MetricRow {
    MenuBarMetric value{};
    std::string_view raw;
    Text::English title;
    std::string_view symbol;
};

constexpr EnumTable<MetricRow, allMenuBarMetrics.size()> metrics = {{
    {MenuBarMetric::cpu, "cpu", "CPU usage", "cpu"},
    {MenuBarMetric::gpu, "gpu", "GPU usage", "rectangle.3.group"},
    {MenuBarMetric::memory, "memory", "Memory usage", "memorychip"},
    {MenuBarMetric::temperature, "temperature", "CPU temperature", "thermometer.medium"},
    {MenuBarMetric::disk, "disk", "Free disk space", "internaldrive"},
    {MenuBarMetric::network, "network", "Network speed", "arrow.up.arrow.down"},
    {MenuBarMetric::battery, "battery", "Battery", "battery.75percent"},
}};

constexpr std::array defaultProjectRoots = {
    "~/Developer", "~/Projects", "~/projects",         "~/code",  "~/Code",      "~/dev",
    "~/src",       "~/GitHub",   "~/Documents/GitHub", "~/repos", "~/workspace",
};

using Value = UserDefaults::Value;
using Texts = UserDefaults::Texts;
using Metrics = std::vector<MenuBarMetric>;

/// Any bytes make a path or a process name, but settings hold UTF-8: each text is stored in its exact form.
Value stored(const Texts& texts) {
    Texts exact(texts.size());
    std::transform(texts.begin(), texts.end(), exact.begin(), Text::encodePath);
    return exact;
}
Value stored(const Metrics& chosen) {
    Texts raw;
    for (const MenuBarMetric metric : chosen) raw.emplace_back(rawValue(metric));
    return raw;
}
Value stored(std::int64_t number) {
    return number;
}
Value stored(bool choice) {
    return choice;
}

/// Takes a stored value over; false, and nothing changed, when it is of another type than the field.
template <typename T>
bool take(const Value& value, T& field) {
    const T* same = std::get_if<T>(&value);
    if (same != nullptr) field = *same;
    return same != nullptr;
}
bool take(const Value& value, Texts& field) {
    const Texts* exact = std::get_if<Texts>(&value);
    if (exact == nullptr) return false;
    field.resize(exact->size());
    std::transform(exact->begin(), exact->end(), field.begin(), Text::decodePath);
    return true;
}
bool take(const Value& value, Metrics& field) {
    const Texts* raw = std::get_if<Texts>(&value);
    if (raw == nullptr) return false;
    field.clear();
    for (const std::string& text : *raw) {
        if (const auto metric = menuBarMetric(text)) field.push_back(*metric);
    }
    return true;
}

/// Which member stands under a key. The member's type decides what is stored.
struct Field {
    using Member = std::variant<Texts PreferenceValues::*, Metrics PreferenceValues::*,
                                std::int64_t PreferenceValues::*, bool PreferenceValues::*>;
    std::string_view key;
    Member member;
};

constexpr std::array fields = {
    Field{"protectedPaths", &PreferenceValues::protectedPaths},
    Field{"projectRoots", &PreferenceValues::projectRoots},
    Field{"staleProjectDays", &PreferenceValues::staleProjectDays},
    Field{"dryRun", &PreferenceValues::dryRun},
    Field{"alwaysTrash", &PreferenceValues::alwaysTrash},
    Field{"menuBarMetrics", &PreferenceValues::menuBarMetrics},
    Field{"sounds", &PreferenceValues::sounds},
    Field{"pinnedProcesses", &PreferenceValues::pinnedProcesses},
};

constexpr auto fieldKeys = [] {
    std::array<std::string_view, fields.size()> keys;
    std::transform(fields.begin(), fields.end(), keys.begin(), [](const Field& field) { return field.key; });
    return keys;
}();

/// Reads one field; false when its key stands in the file with a type that is not the field's.
bool readField(const UserDefaults& defaults, const Field& field, PreferenceValues& preferences) {
    const std::string key(field.key);
    const auto value = defaults.value(key);
    if (!value) return !defaults.holds(key);
    return std::visit([&](auto member) { return take(*value, preferences.*member); }, field.member);
}

}  // namespace

std::string_view rawValue(MenuBarMetric metric) {
    return metrics[metric].raw;
}

std::optional<MenuBarMetric> menuBarMetric(std::string_view rawValue) {
    return metrics.find(rawValue);
}

std::string title(MenuBarMetric metric) {
    return Text::localized(metrics[metric].title);
}

std::string_view symbol(MenuBarMetric metric) {
    return metrics[metric].symbol;
}

PreferenceValues::PreferenceValues() : projectRoots(defaultProjectRoots.begin(), defaultProjectRoots.end()) {}

PreferenceValues PreferenceValues::read(const UserDefaults& defaults) {
    PreferenceValues preferences;
    for (const Field& field : fields) readField(defaults, field, preferences);
    return preferences;
}

std::vector<std::string> PreferenceValues::unreadableKeys(const UserDefaults& defaults) {
    std::vector<std::string> unreadable;
    PreferenceValues ignored;
    for (const Field& field : fields) {
        if (!readField(defaults, field, ignored)) unreadable.emplace_back(field.key);
    }
    return unreadable;
}

bool PreferenceValues::knowsProtectedPaths(const UserDefaults& defaults) {
    PreferenceValues ignored;
    const auto isUnreadable = [&](const Field& field) {
        return field.key == "protectedPaths" && !readField(defaults, field, ignored);
    };
    return defaults.state() != UserDefaults::State::damaged &&
           std::none_of(std::begin(fields), std::end(fields), isUnreadable);
}

std::span<const std::string_view> PreferenceValues::keys() {
    return fieldKeys;
}

std::optional<Value> PreferenceValues::value(std::string_view key) const {
    for (const Field& field : fields) {
        if (field.key != key) continue;
        return std::visit([this](auto member) { return stored(this->*member); }, field.member);
    }
    return std::nullopt;
}

std::vector<std::filesystem::path> PreferenceValues::projectRootURLs(
    const std::filesystem::path& home) const {
    std::vector<std::filesystem::path> existing;
    for (const std::string& root : projectRoots) {
        const std::filesystem::path path = Paths::expandingTilde(root, home);
        if (Files::exists(path)) existing.push_back(path);
    }
    return existing;
}

}  // namespace tavrel
