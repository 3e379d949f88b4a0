#include "models/analyze/AnalyzeOrder.h"

#include <algorithm>
#include <numeric>

namespace tavrel::AnalyzeOrder {
namespace {

constexpr std::int64_t placeOfUnmeasured = 100LL * 1024 * 1024;

}  // namespace

bool precedes(const Key& a, const Key& b) {
    if (a.size && b.size && *a.size != *b.size) return *a.size > *b.size;
    if (a.size && !b.size) return *a.size >= placeOfUnmeasured;
    if (!a.size && b.size) return *b.size < placeOfUnmeasured;
    return a.id < b.id;
}

std::vector<std::uint32_t> sorted(const std::vector<Key>& keys) {
    std::vector<std::uint32_t> order(keys.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(),
              [&](std::uint32_t a, std::uint32_t b) { return precedes(keys[a], keys[b]); });
    return order;
}

}  // namespace tavrel::AnalyzeOrder
