#include "platform/macos/InterfaceRecords.h"

#include "platform/macos/NativeBytes.h"

namespace tavrel::InterfaceRecords {

namespace {

// Where the fields of a record stand, and how far the last of them reaches.
constexpr std::size_t lengthAt = 0;
constexpr std::size_t typeAt = 3;
constexpr std::size_t flagsAt = 8;
constexpr std::size_t receivedAt = 96;
constexpr std::size_t sentAt = 104;
constexpr std::size_t recordEnd = 112;

constexpr std::uint8_t interfaceType = 18;  // RTM_IFINFO2
constexpr std::uint32_t loopback = 8;       // IFF_LOOPBACK

bool counts(std::span<const std::byte> record) {
    return nativeAt<std::uint8_t>(record, typeAt) == interfaceType &&
           (nativeAt<std::uint32_t>(record, flagsAt) & loopback) == 0;
}

bool add(std::uint64_t& sum, std::uint64_t more) {
    return !__builtin_add_overflow(sum, more, &sum);
}

}  // namespace

std::optional<Sensors::NetworkBytes> total(std::span<const std::byte> records) {
    Sensors::NetworkBytes sum;
    while (records.size() >= recordEnd) {
        const std::size_t length = nativeAt<std::uint16_t>(records, lengthAt);
        if (counts(records)) {
            if (!add(sum.received, nativeAt<std::uint64_t>(records, receivedAt))) return std::nullopt;
            if (!add(sum.sent, nativeAt<std::uint64_t>(records, sentAt))) return std::nullopt;
        }
        if (length == 0 || length > records.size()) break;
        records = records.subspan(length);
    }
    return sum;
}

}  // namespace tavrel::InterfaceRecords
