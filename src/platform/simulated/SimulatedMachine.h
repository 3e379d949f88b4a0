#pragma once

#include "platform/macos/MachineCalls.h"

#include <map>

namespace tavrel {

/// Plays a Mac that is asked for its figures: every answer is what stands in the field of that name, and a
/// fresh one has no effect.
class SimulatedMachine final : public MachineCalls {
  public:
    [[nodiscard]] std::optional<ProcessorLoad> processorLoad() const override { return load; }
    [[nodiscard]] std::optional<PageCounts> pageCounts() const override { return pages; }
    [[nodiscard]] std::uint32_t pageSize() const override { return bytesInPage; }
    [[nodiscard]] std::int64_t physicalMemory() const override { return memory; }
    [[nodiscard]] std::optional<Bytes> systemControl(const std::string& name) const override;
    [[nodiscard]] std::optional<Bytes> systemControl(std::span<const int> name) const override;
    [[nodiscard]] std::optional<std::vector<Property>> services(
        const std::string& className, std::initializer_list<std::string_view> properties) const override;
    [[nodiscard]] Property firstService(const std::string& className,
                                        std::initializer_list<std::string_view> properties) const override;
    [[nodiscard]] std::vector<Property> powerSources() const override { return sources; }
    [[nodiscard]] Property externalAdapter() const override { return adapter; }
    [[nodiscard]] Property storeValue(const std::string& session, const std::string& key) const override;
    [[nodiscard]] std::optional<std::string> wifiInterface() const override { return wifi; }
    [[nodiscard]] std::vector<double> loadAverages() const override { return averages; }
    [[nodiscard]] VolumeCapacity volumeCapacity(const std::filesystem::path& folder) const override;
    [[nodiscard]] std::int64_t thermalState() const override { return thermal; }
    [[nodiscard]] std::int64_t activeProcessors() const override { return processors; }

    std::optional<ProcessorLoad> load;
    std::optional<PageCounts> pages;
    std::uint32_t bytesInPage = 16384;
    std::int64_t memory = 0;
    std::map<std::string, Bytes> controls;
    std::map<std::vector<int>, Bytes> numberedControls;
    bool registryAnswers = true;
    std::map<std::string, std::vector<Property::Dictionary>> registry;  // services by class
    std::vector<Property> sources;
    Property adapter;
    std::map<std::pair<std::string, std::string>, Property> store;  // by session and key
    std::optional<std::string> wifi;
    std::vector<double> averages;
    std::map<std::filesystem::path, VolumeCapacity> volumes;  // by the folder asked about
    std::int64_t thermal = 0;
    std::int64_t processors = 1;
};

}  // namespace tavrel
