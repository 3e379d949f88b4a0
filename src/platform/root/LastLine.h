#pragma once

#include <string>
#include <string_view>

namespace tavrel {

/// The last line of a command's output that is for people: without the codes that colour a terminal, and none
/// that a library of the desktop wrote for developers. Empty when there is none.
[[nodiscard]] std::string lastLine(std::string_view output);

}  // namespace tavrel
