#include "platform/simulated/SimulatedMachine.h"

namespace tavrel {

namespace {

template <typename Map, typename Key>
auto valueAt(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? std::nullopt : std::optional(found->second);
}

/// As the registry does it: who does not name a property does not get it.
Property only(const Property::Dictionary& service, std::initializer_list<std::string_view> names) {
    Property::Dictionary named;
    for (const std::string_view name : names) {
        if (const auto found = service.find(name); found != service.end()) named.insert(*found);
    }
    return named;
}

}  // namespace

std::optional<MachineCalls::Bytes> SimulatedMachine::systemControl(const std::string& name) const {
    return valueAt(controls, name);
}

std::optional<MachineCalls::Bytes> SimulatedMachine::systemControl(std::span<const int> name) const {
    return valueAt(numberedControls, std::vector<int>(name.begin(), name.end()));
}

std::optional<std::vector<Property>> SimulatedMachine::services(
    const std::string& className, std::initializer_list<std::string_view> properties) const {
    if (!registryAnswers) return std::nullopt;
    std::vector<Property> services;
    for (const auto& service : valueAt(registry, className).value_or(std::vector<Property::Dictionary>())) {
        services.push_back(only(service, properties));
    }
    return services;
}

Property SimulatedMachine::firstService(const std::string& className,
                                        std::initializer_list<std::string_view> properties) const {
    const auto all = services(className, properties);
    return all && !all->empty() ? all->front() : Property();
}

Property SimulatedMachine::storeValue(const std::string& session, const std::string& key) const {
    return valueAt(store, std::pair(session, key)).value_or(Property());
}

MachineCalls::VolumeCapacity SimulatedMachine::volumeCapacity(const std::filesystem::path& folder) const {
    return valueAt(volumes, folder).value_or(VolumeCapacity());
}

}  // namespace tavrel
