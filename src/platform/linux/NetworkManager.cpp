#include "platform/linux/NetworkManager.h"

namespace tavrel::NetworkManager {

std::optional<std::string> connectionKind(SystemBus& bus) {
    constexpr const char* service = "org.freedesktop.NetworkManager";
    const auto type =
        bus.property({service, "/org/freedesktop/NetworkManager", service}, "PrimaryConnectionType");
    if (type == BusValue("802-11-wireless")) return "Wi-Fi";
    if (type == BusValue("802-3-ethernet")) return "Ethernet";
    return std::nullopt;
}

}  // namespace tavrel::NetworkManager
