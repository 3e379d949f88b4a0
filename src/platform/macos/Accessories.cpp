#include "platform/macos/Accessories.h"

#include "platform/AccessoriesByName.h"

namespace tavrel {

std::vector<Sensors::Accessory> accessoriesAmong(const std::vector<Property>& services) {
    std::vector<Sensors::Accessory> found;
    for (const Property& service : services) {
        const std::string* product = service["Product"].text();
        const auto percent = service["BatteryPercent"].integer();
        if (product != nullptr && percent) found.push_back({*product, *percent});
    }
    return accessoriesByName(found);
}

}  // namespace tavrel
