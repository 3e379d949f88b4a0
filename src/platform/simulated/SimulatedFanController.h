#pragma once

#include "platform/macos/SmcTransport.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// Plays the System Management Controller of a Mac: it answers records from a table of keys.
class SimulatedFanController final : public SmcTransport {
  public:
    enum class Answer { value, refusal, failedCall };

    struct Key {
        std::string type;  // four characters
        std::vector<std::byte> bytes;
        Answer information = Answer::value;
        Answer reading = Answer::value;
    };

    /// What the modes of a machine's fans are called differs by model.
    enum class ModeKey { md, Md };

    /// A fan with all keys that a change of its mode needs, its figures as native floats.
    void addFan(int index, float rpm, float lowest, float highest, ModeKey mode = ModeKey::md);

    [[nodiscard]] static Key floatKey(float value);
    [[nodiscard]] static Key byteKey(std::uint8_t value);

    [[nodiscard]] std::uint32_t open() override;
    void close(std::uint32_t connection) override;
    [[nodiscard]] std::optional<SmcRecord::Bytes> call(std::uint32_t connection, std::uint32_t selector,
                                                       const SmcRecord::Bytes& input) override;

    std::map<std::string, Key> keys;
    std::uint32_t nextConnection = 0x1F03;  // 0 plays a Mac without a controller
    std::vector<std::uint32_t> opened;      // connections not yet closed
    std::vector<SmcRecord::Bytes> inputs;   // one a round trip
};

}  // namespace tavrel
