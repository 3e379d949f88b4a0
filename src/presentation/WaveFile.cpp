#include "presentation/WaveFile.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavrel::WaveFile {
namespace {

constexpr std::uint16_t channels = 1;

/// Least significant byte first, as every number of the format stands.
template <typename Number>
void append(std::string& bytes, Number number) {
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        bytes.push_back(static_cast<char>((number >> (i * CHAR_BIT)) & UCHAR_MAX));
    }
}

void appendChunk(std::string& bytes, std::string_view name, std::string_view content) {
    bytes.append(name);
    append(bytes, static_cast<std::uint32_t>(content.size()));
    bytes.append(content);
    if (content.size() % 2 != 0) bytes.push_back('\0');
}

std::uint16_t bytesOfSample(SampleFormat format) {
    return format == SampleFormat::pcm16 ? sizeof(std::int16_t) : sizeof(float);
}

std::string formatOf(int sampleRate, SampleFormat format) {
    constexpr std::uint16_t pcm = 1;
    constexpr std::uint16_t ieeeFloat = 3;
    const std::uint16_t sampleBytes = bytesOfSample(format);
    const auto frameBytes = static_cast<std::uint16_t>(channels * sampleBytes);
    std::string content;
    append(content, format == SampleFormat::pcm16 ? pcm : ieeeFloat);
    append(content, channels);
    append(content, static_cast<std::uint32_t>(sampleRate));
    append(content, static_cast<std::uint32_t>(sampleRate) * frameBytes);
    append(content, frameBytes);
    append(content, static_cast<std::uint16_t>(sampleBytes * CHAR_BIT));
    // Whatever is not plain PCM tells the size of its extension, though it has none.
    if (format != SampleFormat::pcm16) append(content, std::uint16_t{0});
    return content;
}

std::string dataOf(std::span<const float> samples, SampleFormat format) {
    std::string content;
    content.reserve(samples.size() * bytesOfSample(format));
    for (const float sample : samples) {
        if (format == SampleFormat::pcm16) {
            const float scaled = std::clamp(sample, -1.0F, 1.0F) * SHRT_MAX;
            append(content, static_cast<std::uint16_t>(std::lround(scaled)));
        } else {
            append(content, std::bit_cast<std::uint32_t>(sample));
        }
    }
    return content;
}

}  // namespace

std::string encode(std::span<const float> samples, int sampleRate, SampleFormat format) {
    std::string body = "WAVE";
    appendChunk(body, "fmt ", formatOf(sampleRate, format));
    if (format != SampleFormat::pcm16) {
        std::string frames;
        append(frames, static_cast<std::uint32_t>(samples.size()));
        appendChunk(body, "fact", frames);
    }
    appendChunk(body, "data", dataOf(samples, format));
    std::string file;
    appendChunk(file, "RIFF", body);
    return file;
}

}  // namespace tavrel::WaveFile
