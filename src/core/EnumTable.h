#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace tavrel {

/// Every case of an enumeration of `N` cases that counts from 0, in their order.
template <typename Enum, std::size_t N>
[[nodiscard]] constexpr std::array<Enum, N> enumCases() {
    std::array<Enum, N> cases{};
    for (std::size_t i = 0; i < N; ++i) cases.at(i) = static_cast<Enum>(i);
    return cases;
}

/// The case at `index` of `cases`; nullopt beyond them.
template <typename Enum, std::size_t N>
[[nodiscard]] constexpr std::optional<Enum> caseAt(const std::array<Enum, N>& cases, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= N) return std::nullopt;
    return cases.at(static_cast<std::size_t>(index));
}

/// What belongs to each case of an enumeration. `Row` begins with the fields `value`, the case, and `raw`,
/// its text in files. A table whose rows do not stand in the order of the cases does not compile.
template <typename Row, std::size_t N>
class EnumTable {
  public:
    using Enum = decltype(Row::value);

    consteval EnumTable(
        const Row (&rows)[N]) {  // NOLINT(*-avoid-c-arrays,*-explicit-*): written as a list of rows
        for (std::size_t i = 0; i < N; ++i) {
            if (rows[i].value != static_cast<Enum>(i)) throw "a row is not in its place";
            rows_.at(i) = rows[i];
        }
    }

    [[nodiscard]] constexpr const Row& operator[](Enum value) const {
        return rows_.at(static_cast<std::size_t>(value));
    }

    /// The case with the text `raw`; nullopt for any other text.
    [[nodiscard]] constexpr std::optional<Enum> find(std::string_view raw) const {
        for (const Row& row : rows_) {
            if (row.raw == raw) return row.value;
        }
        return std::nullopt;
    }

  private:
    std::array<Row, N> rows_{};
};

}  // namespace tavrel
