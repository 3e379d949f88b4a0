#pragma once

#include <cstdint>
#include <optional>
#include <vector>

/// In which order the things of a folder are shown.
namespace tavrel::AnalyzeOrder {

/// An entry as far as its place goes. Ids are given in the order of the names.
struct Key {
    std::optional<std::int64_t> size;  // none while it is not measured
    std::uint32_t id = 0;
};

/// Largest first, equal ones by name. What is not measured yet stands where 100 MiB would: near the middle,
/// so that a list moves less while its figures come in.
[[nodiscard]] bool precedes(const Key& a, const Key& b);

/// The positions of `keys` in that order.
[[nodiscard]] std::vector<std::uint32_t> sorted(const std::vector<Key>& keys);

}  // namespace tavrel::AnalyzeOrder
