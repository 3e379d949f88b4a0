#pragma once

#include "core/EnumTable.h"

#include <string>
#include <string_view>

namespace tavrel {

/// The five tabs, in the order they are shown. The raw value is the case's own name.
enum class AppTab { clean, apps, optimize, analyze, status };

inline constexpr auto allAppTabs = enumCases<AppTab, 5>();

[[nodiscard]] std::string_view rawValue(AppTab tab);
[[nodiscard]] std::string title(AppTab tab);

/// The sub-tabs of the Apps tab, in their order.
enum class AppsMode { uninstall, updates, startup };

inline constexpr auto allAppsModes = enumCases<AppsMode, 3>();

}  // namespace tavrel
