#pragma once

#include <span>
#include <string>

/// Sound files in the RIFF WAVE format, after "Multimedia Programming Interface and Data Specifications 1.0"
/// (IBM and Microsoft, 1991) and, for floats, "New Multimedia Data Types and Data Techniques" (Microsoft,
/// 1994).
namespace tavrel::WaveFile {

enum class SampleFormat { pcm16, float32 };

/// The bytes of a file with one channel. `samples` lie between -1 and 1, others are cut to that for `pcm16`;
/// there are fewer than 2^30 of them. `sampleRate` is in frames a second.
[[nodiscard]] std::string encode(std::span<const float> samples, int sampleRate, SampleFormat format);

}  // namespace tavrel::WaveFile
