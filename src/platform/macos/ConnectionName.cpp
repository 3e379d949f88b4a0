#include "platform/macos/ConnectionName.h"

namespace tavrel {

std::string connectionName(const std::string& interface, const std::optional<std::string>& wifiInterface) {
    if (wifiInterface == interface) return "Wi-Fi";
    if (interface.starts_with("en")) return "Ethernet";
    return interface;
}

}  // namespace tavrel
