#pragma once

#include "platform/FanReader.h"
#include "platform/macos/SmcTransport.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavrel {

/// Reads fans from the System Management Controller of a Mac. It writes nothing. The connection is
/// opened when the reader is made and never again; without one there are no fans.
class SmcFanReader final : public FanReader {
  public:
    /// `transport` outlives this object.
    explicit SmcFanReader(SmcTransport& transport) : transport_(transport), connection_(transport.open()) {}
    ~SmcFanReader() override;
    SmcFanReader(const SmcFanReader&) = delete;
    SmcFanReader& operator=(const SmcFanReader&) = delete;

    [[nodiscard]] std::vector<Fan> read() override;
    [[nodiscard]] bool isControllable() override;

    /// What the controller says, if that can be; else how many fans in a row report their speed, at most
    /// eight.
    [[nodiscard]] std::int64_t fanCount();
    /// The number under a key of four ASCII characters, in two round trips.
    [[nodiscard]] std::optional<double> value(std::string_view key);

  private:
    [[nodiscard]] std::optional<SmcRecord> answer(const SmcRecord& question);
    [[nodiscard]] std::optional<SmcRecord::KeyInfo> keyInfo(std::string_view key);
    [[nodiscard]] bool isControllable(std::int64_t fan);

    SmcTransport& transport_;
    std::uint32_t connection_;
};

}  // namespace tavrel
