#pragma once

#include <cstdint>

/// How a feed cuts a run into waves. Counts are of items, times in seconds.
namespace tavrel::FeedPlan {

enum class Work { underWay, finished };

inline constexpr double waveInterval = 0.3;   // between two waves
inline constexpr double idleInterval = 0.05;  // between two looks at work that has nothing new
inline constexpr double arrival = 0.55;       // part of its fall after which an icon reaches the hole
inline constexpr double lingering = 1.0;      // how long an event is kept after its fall

/// How many waves what is pending is spread over. While the work goes on that is a fixed part; once it has
/// finished, as many waves as still fit into the `minimum` duration of the show.
[[nodiscard]] double divisor(Work work, double minimum, double elapsed);

/// How many of the `pending` items the next wave takes; at least one. Both arguments are above 0.
[[nodiscard]] std::int64_t waveCount(std::int64_t pending, double divisor);

/// What a wave adds to the progress of the whole show: half by bytes, half by items. All shares of a feed
/// come to 1, or to less where it has no bytes.
[[nodiscard]] double share(std::int64_t bytes, std::int64_t allBytes, std::int64_t count,
                           std::int64_t allItems);

/// The direction in radians from which the event comes before which `released` others did: turned by the
/// golden angle each time, so that successive icons never line up.
[[nodiscard]] double angle(std::int64_t released);

}  // namespace tavrel::FeedPlan
