#include "core/ByteCount.h"

#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(ByteCount, ReadsAsPeopleWriteSizes) {
    const std::pair<std::int64_t, std::string> cases[] = {
        {0, "Zero KB"},
        {1, "1 byte"},
        {2, "2 bytes"},
        {999, "999 bytes"},
        {1'000, "1 KB"},
        {1'499, "1 KB"},
        {1'500, "2 KB"},
        {3'449'999, "3.4 MB"},
        {12'000'000, "12 MB"},
        {1'250'000'000, "1.25 GB"},
        {1'205'000'000, "1.21 GB"},
        {1'200'000'000, "1.2 GB"},
        {1'050'000'000, "1.05 GB"},
        {2'000'000'000'000, "2 TB"},
        // What rounds to a thousand is one of the next unit.
        {999'499, "999 KB"},
        {999'500, "1 MB"},
        {999'949'999, "999.9 MB"},
        {999'950'000, "1 GB"},
        {-1, "-1 byte"},
        {-1'500'000, "-1.5 MB"},
        {std::numeric_limits<std::int64_t>::max(), "9.22 EB"},
        {std::numeric_limits<std::int64_t>::min(), "-9.22 EB"},
    };
    for (const auto& [bytes, text] : cases) EXPECT_EQ(byteCount(bytes), text) << bytes;
}

}  // namespace
}  // namespace tavrel
