#pragma once

#include <cstddef>
#include <string>

/// Texts in columns of a terminal.
namespace tavrel::cli::Columns {

/// With spaces behind it, up to that many columns.
[[nodiscard]] std::string left(const std::string& text, std::size_t columns);
/// With spaces before it.
[[nodiscard]] std::string right(const std::string& text, std::size_t columns);

}  // namespace tavrel::cli::Columns
