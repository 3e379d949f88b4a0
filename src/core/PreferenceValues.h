#pragma once

#include "core/EnumTable.h"
#include "core/UserDefaults.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// A figure that the menu-bar item can show. The raw text is the case's own name.
enum class MenuBarMetric { cpu, gpu, memory, temperature, disk, network, battery };

inline constexpr auto allMenuBarMetrics = enumCases<MenuBarMetric, 7>();

[[nodiscard]] std::string_view rawValue(MenuBarMetric metric);
[[nodiscard]] std::optional<MenuBarMetric> menuBarMetric(std::string_view rawValue);
[[nodiscard]] std::string title(MenuBarMetric metric);
[[nodiscard]] std::string_view symbol(MenuBarMetric metric);

/// What the user chose. Read from the defaults once; each field is written back under the key of its name.
struct PreferenceValues {
    std::vector<std::string> protectedPaths;  // a leading tilde is allowed
    std::vector<std::string> projectRoots;    // a leading tilde is allowed
    std::int64_t staleProjectDays = 30;
    bool dryRun = false;
    bool alwaysTrash = false;
    std::vector<MenuBarMetric> menuBarMetrics = {MenuBarMetric::cpu, MenuBarMetric::memory};
    bool sounds = true;
    std::vector<std::string> pinnedProcesses;

    /// With every default in place.
    PreferenceValues();

    /// A missing key, and one of a wrong type, takes its default.
    [[nodiscard]] static PreferenceValues read(const UserDefaults& defaults);

    /// The keys whose values in the file have a wrong type, to be shown to the user.
    [[nodiscard]] static std::vector<std::string> unreadableKeys(const UserDefaults& defaults);
    /// Whether the folders that the user barred can be read. Where they cannot, nothing may be removed.
    [[nodiscard]] static bool knowsProtectedPaths(const UserDefaults& defaults);

    /// Every key, in the order of the fields.
    [[nodiscard]] static std::span<const std::string_view> keys();

    /// The field of that name as it is stored; nothing for an unknown key.
    [[nodiscard]] std::optional<UserDefaults::Value> value(std::string_view key) const;

    /// The code folders that exist, tildes expanded against `home`.
    [[nodiscard]] std::vector<std::filesystem::path> projectRootURLs(const std::filesystem::path& home) const;

    bool operator==(const PreferenceValues&) const = default;
};

}  // namespace tavrel
