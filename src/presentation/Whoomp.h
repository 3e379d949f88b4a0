#pragma once

#include <vector>

/// The program's one sound: a rushing breath with a deep tone under it and three soft bells at its end.
namespace tavrel::Whoomp {

inline constexpr double duration = 1.7;         // seconds
inline constexpr int usualSampleRate = 44'100;  // frames a second

/// The sound as mono samples between -1 and 1, quiet on purpose, the same in every run. Empty where the rate
/// is not positive.
[[nodiscard]] std::vector<float> render(int sampleRate);

}  // namespace tavrel::Whoomp
