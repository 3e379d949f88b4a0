#pragma once

#include "platform/macos/SmcRecord.h"

#include <cstdint>
#include <optional>

namespace tavrel {

/// The way to the controller: the service "AppleSMC" and its one call with a record in and a record out.
class SmcTransport {
  public:
    /// The only selector that the controller is called with.
    static constexpr std::uint32_t selector = 2;

    virtual ~SmcTransport() = default;

    /// Opens a connection, which the caller closes; 0 if there is no controller or it refuses.
    [[nodiscard]] virtual std::uint32_t open() = 0;
    virtual void close(std::uint32_t connection) = 0;

    /// One round trip. Nothing when the call itself failed; what the controller thinks of it is in the
    /// record.
    [[nodiscard]] virtual std::optional<SmcRecord::Bytes> call(std::uint32_t connection,
                                                               std::uint32_t selector,
                                                               const SmcRecord::Bytes& input) = 0;
};

}  // namespace tavrel
