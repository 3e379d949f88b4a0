#include "presentation/WaveFile.h"

#include <cstdint>
#include <cstring>
#include <map>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;
using WaveFile::SampleFormat;

constexpr float samples[] = {0.0F, 0.5F, -1.0F, 1.0F, 3.0F, -3.0F};

/// A number as it lies in the file; this reader, like what it reads, has the least significant byte first.
template <typename Number>
Number numberAt(const std::string& bytes, std::size_t offset) {
    Number number = 0;
    std::memcpy(&number, bytes.substr(offset, sizeof(Number)).data(), sizeof(Number));
    return number;
}

template <typename Number>
std::vector<Number> numbers(const std::string& bytes) {
    std::vector<Number> all;
    for (std::size_t i = 0; i < bytes.size(); i += sizeof(Number)) all.push_back(numberAt<Number>(bytes, i));
    return all;
}

/// The chunks of a file by their names, once its frame has been found sound.
std::map<std::string, std::string> chunks(const std::string& file) {
    std::map<std::string, std::string> found;
    EXPECT_EQ(file.substr(0, 4), "RIFF");
    EXPECT_EQ(numberAt<std::uint32_t>(file, 4) + 8, file.size());
    EXPECT_EQ(file.substr(8, 4), "WAVE");
    std::size_t at = 12;
    while (at + 8 <= file.size()) {
        const auto size = numberAt<std::uint32_t>(file, at + 4);
        found[file.substr(at, 4)] = file.substr(at + 8, size);
        at += 8 + size + size % 2;
    }
    EXPECT_EQ(at, file.size());
    return found;
}

TEST(WaveFile, SixteenBitsAreCutToTheirRange) {
    auto found = chunks(WaveFile::encode(samples, 44'100, SampleFormat::pcm16));
    // Format, channels, rate in two halves, bytes a second in two halves, bytes a frame, bits a sample.
    EXPECT_THAT(numbers<std::uint16_t>(found["fmt "]),
                ElementsAre(1, 1, 44'100, 0, 88'200 - 65'536, 1, 2, 16));
    EXPECT_THAT(numbers<std::int16_t>(found["data"]),
                ElementsAre(0, 16'384, -32'767, 32'767, 32'767, -32'767));
    EXPECT_THAT(found, SizeIs(2));
}

TEST(WaveFile, FloatsAreKeptAsTheyAre) {
    auto found = chunks(WaveFile::encode(samples, 8'000, SampleFormat::float32));
    EXPECT_THAT(numbers<std::uint16_t>(found["fmt "]), ElementsAre(3, 1, 8'000, 0, 32'000, 0, 4, 32, 0));
    EXPECT_THAT(numbers<float>(found["data"]), ::testing::ElementsAreArray(samples));
    EXPECT_THAT(numbers<std::uint32_t>(found["fact"]), ElementsAre(std::size(samples)));
    EXPECT_EQ(chunks(WaveFile::encode({}, 8'000, SampleFormat::float32)).at("data"), "");
}

}  // namespace
}  // namespace tavrel
