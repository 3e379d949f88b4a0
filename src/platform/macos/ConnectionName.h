#pragma once

#include <optional>
#include <string>

namespace tavrel {

/// What people call the connection through an interface of a Mac: "Wi-Fi" when it is the Wi-Fi interface,
/// "Ethernet" for every other whose name begins with "en", else the name as it stands, a tunnel's for
/// example.
[[nodiscard]] std::string connectionName(const std::string& interface,
                                         const std::optional<std::string>& wifiInterface);

}  // namespace tavrel
