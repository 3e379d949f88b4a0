#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// How the rows of a list come from one order into another.
namespace tavrel::RowOrder {

using Ids = std::vector<std::uint32_t>;

/// The ids that have to move so that `before` becomes `after`, as few as possible, in the order of `after`.
/// Both hold the same ids, all below `idCount`.
[[nodiscard]] Ids movers(const Ids& before, const Ids& after, std::size_t idCount);

}  // namespace tavrel::RowOrder
