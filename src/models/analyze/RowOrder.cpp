#include "models/analyze/RowOrder.h"

#include <algorithm>
#include <limits>

namespace tavrel::RowOrder {

/// What stays is a longest run of ids that both orders have in the same sequence.
Ids movers(const Ids& before, const Ids& after, std::size_t idCount) {
    constexpr auto none = std::numeric_limits<std::uint32_t>::max();
    Ids rowBefore(idCount, none);
    for (std::uint32_t row = 0; row < before.size(); ++row) rowBefore[before[row]] = row;

    Ids lastOfLength;                  // for each length of run, the place in `after` where the lowest ends
    Ids previous(after.size(), none);  // in its run
    for (std::uint32_t at = 0; at < after.size(); ++at) {
        const auto place = std::lower_bound(
            lastOfLength.begin(), lastOfLength.end(), rowBefore[after[at]],
            [&](std::uint32_t last, std::uint32_t row) { return rowBefore[after[last]] < row; });
        if (place != lastOfLength.begin()) previous[at] = *(place - 1);
        if (place == lastOfLength.end()) {
            lastOfLength.push_back(at);
        } else {
            *place = at;
        }
    }
    std::vector<bool> stays(after.size(), false);
    for (std::uint32_t at = lastOfLength.empty() ? none : lastOfLength.back(); at != none; at = previous[at])
        stays[at] = true;
    Ids moving;
    for (std::size_t at = 0; at < after.size(); ++at) {
        if (!stays[at]) moving.push_back(after[at]);
    }
    return moving;
}

}  // namespace tavrel::RowOrder
