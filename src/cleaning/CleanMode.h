#pragma once

#include "core/EnumTable.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// The four lists of the Clean tab, in the order of their sub-tabs. The raw value is the case's own name.
enum class CleanMode { system, ai, projects, installers };

namespace CleanModes {

inline constexpr auto allCases = enumCases<CleanMode, 4>();

[[nodiscard]] std::string_view rawValue(CleanMode mode);
[[nodiscard]] std::optional<CleanMode> fromRawValue(std::string_view text);
[[nodiscard]] std::string title(CleanMode mode);
/// The word for the mode in the history.
[[nodiscard]] std::string_view action(CleanMode mode);
/// The word that a user knows for a word of the history: the raw value of "projects" in place of its action,
/// any other word as it is.
[[nodiscard]] std::string_view knownWord(std::string_view action);

}  // namespace CleanModes
}  // namespace tavrel
