#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Text as people and other programs read it.
namespace tavrel::Text {

/// A text that a person reads in their own language. Wherever a parameter or a field has this type, what is
/// written for it is a text of the catalogues: `./dev texts` collects them by that.
using English = const char*;

/// The words of the user's language for an English text, which is its own key. Falls back to the English.
/// Safe from any thread.
[[nodiscard]] std::string localized(English english);

/// Like localized(english); `count` chooses between the forms `one` and `many`.
[[nodiscard]] std::string localized(English one, English many, unsigned long count);

/// The same for a text that another process has said in English; unchanged when no catalogue holds it.
[[nodiscard]] std::string translated(const std::string& english);

/// `bytes` as UTF-8, every invalid sequence replaced by U+FFFD.
[[nodiscard]] std::string replaceInvalidUtf8(std::string_view bytes);
[[nodiscard]] bool isUtf8(std::string_view bytes);

/// Returns `bytes` escaped for display: control characters and newlines as "\n", "\t" or "\xNN", invalid
/// UTF-8 as "\xNN". The result holds no control character. Not reversible.
[[nodiscard]] std::string escapedForDisplay(std::string_view bytes);

/// Encodes any bytes as valid UTF-8, reversibly (inverse: decodePath). Valid UTF-8 without sequences that
/// read as an escape is returned unchanged; otherwise backslashes are doubled and invalid bytes become
/// "\xNN". Made for paths in settings and in JSON.
[[nodiscard]] std::string encodePath(std::string_view bytes);
[[nodiscard]] std::string decodePath(std::string_view text);

/// Columns that a terminal needs for `utf8`: wide characters count 2, combining ones 0.
[[nodiscard]] std::size_t columns(std::string_view utf8);

/// `utf8` cut in the middle to at most `width` columns, with "…" in the place of what is left out.
[[nodiscard]] std::string elided(std::string_view utf8, std::size_t width);

/// Lower case for ASCII letters, every other byte unchanged.
[[nodiscard]] std::string lowercased(std::string_view text);

/// Without white space and newlines at both ends.
[[nodiscard]] std::string trimmed(std::string_view text);

}  // namespace tavrel::Text
