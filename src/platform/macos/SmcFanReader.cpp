#include "platform/macos/SmcFanReader.h"

#include "platform/macos/SmcValue.h"

#include <string>

namespace tavrel {

namespace {

constexpr std::int64_t mostFans = 8;

/// "F0Ac" and its kin: the speed now, "Mn" and "Mx" the limits, "Tg" the target, "md" or "Md" the mode.
std::string fanKey(std::int64_t fan, const char* suffix) {
    return "F" + std::to_string(fan) + suffix;
}

}  // namespace

SmcFanReader::~SmcFanReader() {
    if (connection_ != 0) transport_.close(connection_);
}

std::optional<SmcRecord> SmcFanReader::answer(const SmcRecord& question) {
    if (connection_ == 0) return std::nullopt;
    const auto reply = transport_.call(connection_, SmcTransport::selector, question.encoded());
    if (!reply) return std::nullopt;
    const SmcRecord record = SmcRecord::decoded(*reply);
    return record.result == 0 ? std::optional(record) : std::nullopt;
}

std::optional<SmcRecord::KeyInfo> SmcFanReader::keyInfo(std::string_view key) {
    SmcRecord question;
    question.key = SmcRecord::packed(key);
    question.data8 = SmcRecord::readKeyInfo;
    const auto reply = answer(question);
    return reply ? std::optional(reply->keyInfo) : std::nullopt;
}

std::optional<double> SmcFanReader::value(std::string_view key) {
    const auto info = keyInfo(key);
    if (!info) return std::nullopt;
    SmcRecord question;
    question.key = SmcRecord::packed(key);
    question.keyInfo.dataSize = info->dataSize;
    question.data8 = SmcRecord::readValue;
    const auto reply = answer(question);
    return reply ? smcValue(info->dataType, reply->bytes) : std::nullopt;
}

std::int64_t SmcFanReader::fanCount() {
    const double told = value("FNum").value_or(0);
    if (told > 0 && told < mostFans) return static_cast<std::int64_t>(told);
    std::int64_t count = 0;
    while (count < mostFans && value(fanKey(count, "Ac"))) ++count;
    return count;
}

std::vector<Fan> SmcFanReader::read() {
    std::vector<Fan> fans;
    if (connection_ == 0) return fans;
    const std::int64_t count = fanCount();
    for (std::int64_t fan = 0; fan < count; ++fan) {
        const auto speed = value(fanKey(fan, "Ac"));
        if (speed) fans.push_back({*speed, value(fanKey(fan, "Mx")).value_or(0)});
    }
    return fans;
}

bool SmcFanReader::isControllable() {
    const std::int64_t count = fanCount();
    for (std::int64_t fan = 0; fan < count; ++fan) {
        if (!isControllable(fan)) return false;
    }
    return count > 0;
}

/// The two forms of the mode's key differ by model; that one is there is enough.
bool SmcFanReader::isControllable(std::int64_t fan) {
    if (!keyInfo(fanKey(fan, "md")) && !keyInfo(fanKey(fan, "Md"))) return false;
    if (!value(fanKey(fan, "Tg"))) return false;
    const auto lowest = value(fanKey(fan, "Mn"));
    return lowest && value(fanKey(fan, "Mx")).value_or(0) > *lowest;
}

}  // namespace tavrel
