#include "core/RandomBytes.h"

#include <algorithm>
#include <iterator>
#include <random>

#include <fmt/format.h>

namespace tavrel {

std::vector<std::uint8_t> randomBytes(std::size_t count) {
    std::random_device source;
    std::vector<std::uint8_t> bytes(count);
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(source() & 0xffU); });
    return bytes;
}

std::string privateName() {
    std::string name = ".tavrel-";
    for (const auto byte : randomBytes(16)) fmt::format_to(std::back_inserter(name), "{:02x}", byte);
    return name;
}

}  // namespace tavrel
