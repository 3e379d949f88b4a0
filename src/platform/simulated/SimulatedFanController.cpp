#include "platform/simulated/SimulatedFanController.h"

#include <algorithm>
#include <cstring>

namespace tavrel {

namespace {

// What the controller says of a key that it does not know, and of a question that it does not understand.
constexpr std::uint8_t unknownKey = 0x84;
constexpr std::uint8_t badQuestion = 0x89;

std::string keyName(std::uint32_t packed) {
    std::string name;
    for (int shift = 24; shift >= 0; shift -= 8) name += static_cast<char>(packed >> shift & 0xFF);
    return name;
}

SmcRecord refusal(const SmcRecord& question, std::uint8_t result) {
    SmcRecord reply;
    reply.key = question.key;
    reply.result = result;
    return reply;
}

SmcRecord information(const SmcRecord& question, const SimulatedFanController::Key& key) {
    SmcRecord reply;
    reply.key = question.key;
    reply.keyInfo.dataSize = static_cast<std::uint32_t>(key.bytes.size());
    reply.keyInfo.dataType = SmcRecord::packed(key.type);
    return reply;
}

/// Only who says how long the value is gets it.
SmcRecord reading(const SmcRecord& question, const SimulatedFanController::Key& key) {
    if (question.keyInfo.dataSize != key.bytes.size()) return refusal(question, badQuestion);
    SmcRecord reply;
    reply.key = question.key;
    std::copy_n(key.bytes.begin(), std::min(key.bytes.size(), reply.bytes.size()), reply.bytes.begin());
    return reply;
}

}  // namespace

SimulatedFanController::Key SimulatedFanController::floatKey(float value) {
    Key key{"flt ", std::vector<std::byte>(sizeof value)};
    std::memcpy(key.bytes.data(), &value, sizeof value);
    return key;
}

SimulatedFanController::Key SimulatedFanController::byteKey(std::uint8_t value) {
    return {"ui8 ", {std::byte{value}}};
}

void SimulatedFanController::addFan(int index, float rpm, float lowest, float highest, ModeKey mode) {
    const std::string fan = "F" + std::to_string(index);
    keys[fan + "Ac"] = floatKey(rpm);
    keys[fan + "Mn"] = floatKey(lowest);
    keys[fan + "Mx"] = floatKey(highest);
    keys[fan + "Tg"] = floatKey(rpm);
    keys[fan + (mode == ModeKey::md ? "md" : "Md")] = byteKey(0);
}

std::uint32_t SimulatedFanController::open() {
    if (nextConnection != 0) opened.push_back(nextConnection);
    return nextConnection;
}

void SimulatedFanController::close(std::uint32_t connection) {
    std::erase(opened, connection);
}

std::optional<SmcRecord::Bytes> SimulatedFanController::call(std::uint32_t connection, std::uint32_t asked,
                                                             const SmcRecord::Bytes& input) {
    inputs.push_back(input);
    const bool isOpen = std::find(opened.begin(), opened.end(), connection) != opened.end();
    if (!isOpen || asked != selector) return std::nullopt;

    const SmcRecord question = SmcRecord::decoded(input);
    const auto found = keys.find(keyName(question.key));
    if (found == keys.end()) return refusal(question, unknownKey).encoded();
    const Key& key = found->second;
    const bool isReading = question.data8 == SmcRecord::readValue;
    if (!isReading && question.data8 != SmcRecord::readKeyInfo) {
        return refusal(question, badQuestion).encoded();
    }
    switch (isReading ? key.reading : key.information) {
        case Answer::value:
            break;
        case Answer::refusal:
            return refusal(question, badQuestion).encoded();
        case Answer::failedCall:
            return std::nullopt;
    }
    return (isReading ? reading(question, key) : information(question, key)).encoded();
}

}  // namespace tavrel
