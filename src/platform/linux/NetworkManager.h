#pragma once

#include "platform/linux/SystemBus.h"

#include <optional>
#include <string>

/// What NetworkManager knows of the network (the reference of its D-Bus interface).
namespace tavrel::NetworkManager {

/// "Wi-Fi" or "Ethernet" where it made the connection in use and it is one of these; nothing otherwise.
[[nodiscard]] std::optional<std::string> connectionKind(SystemBus& bus);

}  // namespace tavrel::NetworkManager
