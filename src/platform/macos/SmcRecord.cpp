#include "platform/macos/SmcRecord.h"

#include "platform/macos/NativeBytes.h"

#include <algorithm>
#include <cstring>

namespace tavrel {

namespace {

// Between these stand the controller's version and power limits, which nobody reads.
constexpr std::size_t keyAt = 0;
constexpr std::size_t dataSizeAt = 28;
constexpr std::size_t dataTypeAt = 32;
constexpr std::size_t resultAt = 40;
constexpr std::size_t data8At = 42;
constexpr std::size_t bytesAt = 48;

template <typename Value>
void put(SmcRecord::Bytes& record, std::size_t offset, const Value& value) {
    std::memcpy(record.data() + offset, &value, sizeof value);
}

}  // namespace

SmcRecord::Bytes SmcRecord::encoded() const {
    Bytes record{};
    put(record, keyAt, key);
    put(record, dataSizeAt, keyInfo.dataSize);
    put(record, dataTypeAt, keyInfo.dataType);
    put(record, resultAt, result);
    put(record, data8At, data8);
    put(record, bytesAt, bytes);
    return record;
}

SmcRecord SmcRecord::decoded(const Bytes& record) {
    SmcRecord decoded;
    decoded.key = nativeAt<std::uint32_t>(record, keyAt);
    decoded.keyInfo.dataSize = nativeAt<std::uint32_t>(record, dataSizeAt);
    decoded.keyInfo.dataType = nativeAt<std::uint32_t>(record, dataTypeAt);
    decoded.result = nativeAt<std::uint8_t>(record, resultAt);
    decoded.data8 = nativeAt<std::uint8_t>(record, data8At);
    std::copy_n(record.begin() + bytesAt, decoded.bytes.size(), decoded.bytes.begin());
    return decoded;
}

}  // namespace tavrel
