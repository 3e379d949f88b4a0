#include "platform/macos/Accessories.h"

#include <map>

namespace tavrel {

std::vector<Sensors::Accessory> accessoriesAmong(const std::vector<Property>& services) {
    std::map<std::string, std::int64_t> percents;
    for (const Property& service : services) {
        const std::string* product = service["Product"].text();
        const auto percent = service["BatteryPercent"].integer();
        if (product != nullptr && percent) percents.insert_or_assign(*product, *percent);
    }
    std::vector<Sensors::Accessory> accessories;
    accessories.reserve(percents.size());
    for (const auto& [name, percent] : percents) accessories.push_back({name, percent});
    return accessories;
}

}  // namespace tavrel
