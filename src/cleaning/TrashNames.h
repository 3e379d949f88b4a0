#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavrel::TrashNames {

/// The name that a thing called `name` takes on the `number`th attempt, counted from 1: its own, then with "
/// 2", " 3" before the extension, cut in front of both to at most `room` bytes and never inside a UTF-8
/// character.
[[nodiscard]] std::string numbered(std::string_view name, unsigned number, std::size_t room);

}  // namespace tavrel::TrashNames
