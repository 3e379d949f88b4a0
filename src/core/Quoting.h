#pragma once

#include <string>
#include <string_view>

namespace tavrel::Quoting {

/// One word of shell text that stands for `bytes` exactly: in single quotes, each single quote of it as '\''.
[[nodiscard]] std::string shell(std::string_view bytes);

/// The inside of an AppleScript string literal: every backslash doubled, every double quote behind a
/// backslash.
[[nodiscard]] std::string appleScript(std::string_view text);

}  // namespace tavrel::Quoting
