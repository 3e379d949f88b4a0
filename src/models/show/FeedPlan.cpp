#include "models/show/FeedPlan.h"

#include <algorithm>
#include <cmath>

namespace tavrel::FeedPlan {

double divisor(Work work, double minimum, double elapsed) {
    constexpr double whileUnderWay = 4;
    if (work == Work::underWay) return whileUnderWay;
    return std::max(std::trunc((minimum - elapsed) / waveInterval), 1.0);
}

std::int64_t waveCount(std::int64_t pending, double divisor) {
    const auto count = static_cast<std::int64_t>(std::ceil(static_cast<double>(pending) / divisor));
    return std::max<std::int64_t>(count, 1);
}

double share(std::int64_t bytes, std::int64_t allBytes, std::int64_t count, std::int64_t allItems) {
    const auto half = [](std::int64_t part, std::int64_t whole) {
        return static_cast<double>(part) * 0.5 / static_cast<double>(std::max<std::int64_t>(whole, 1));
    };
    return half(bytes, allBytes) + half(count, allItems);
}

double angle(std::int64_t released) {
    constexpr double goldenAngle = 2.399963;
    constexpr double first = 0.6;
    return static_cast<double>(released) * goldenAngle + first;
}

}  // namespace tavrel::FeedPlan
