#pragma once

#include "core/UserDefaults.h"

#include <string>
#include <string_view>

#include <tl/expected.hpp>

namespace tavrel::cli::PreferenceText {

/// The value that `text` stands for, as the preference `key` stores it: true, false, on or off; a whole
/// number; or a JSON array of texts. The error is a line for the user. `key` must be one of the preferences.
[[nodiscard]] tl::expected<UserDefaults::Value, std::string> parse(std::string_view key,
                                                                   std::string_view text);

}  // namespace tavrel::cli::PreferenceText
