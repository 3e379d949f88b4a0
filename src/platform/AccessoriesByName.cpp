#include "platform/AccessoriesByName.h"

#include <map>

namespace tavrel {

std::vector<Sensors::Accessory> accessoriesByName(const std::vector<Sensors::Accessory>& found) {
    std::map<std::string, std::int64_t> percents;
    for (const Sensors::Accessory& each : found) percents.insert_or_assign(each.name, each.percent);
    std::vector<Sensors::Accessory> accessories;
    accessories.reserve(percents.size());
    for (const auto& [name, percent] : percents) accessories.push_back({name, percent});
    return accessories;
}

}  // namespace tavrel
