#pragma once

#include "platform/Sensors.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the network interfaces have moved, and where packets to the world go, after proc(5), "/proc/net".
namespace tavrel::NetworkFigures {

struct Row {
    std::string_view name;  // within the text that was parsed
    Sensors::NetworkBytes bytes;
};

/// Fills `rows` from /proc/net/dev; headings and broken rows are passed over.
void parse(std::string_view dev, std::vector<Row>& rows);

/// The interface of the default route with the lowest metric, from /proc/net/route or /proc/net/ipv6_route.
[[nodiscard]] std::optional<std::string> defaultInterface(std::string_view route);
[[nodiscard]] std::optional<std::string> defaultInterface6(std::string_view route);

}  // namespace tavrel::NetworkFigures
