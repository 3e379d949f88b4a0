#pragma once

#include "platform/macos/Property.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// What a Mac is asked for its figures, call by call and without any meaning put in: all of that stands in
/// code which is built and tested on every system. No call keeps anything, and any thread may make it.
class MachineCalls {
  public:
    using Bytes = std::vector<std::byte>;

    /// Four counters a processor: user, system, idle, nice.
    struct ProcessorLoad {
        std::uint32_t processors = 0;
        std::vector<std::uint32_t> counters;
    };

    /// In pages.
    struct PageCounts {
        std::uint32_t wired = 0;
        std::uint32_t compressor = 0;
        std::uint32_t internal = 0;
        std::uint32_t purgeable = 0;
    };

    struct VolumeCapacity {
        std::optional<std::int64_t> total;
        std::optional<std::int64_t> availableForImportantUsage;
    };

    virtual ~MachineCalls() = default;

    /// `host_processor_info` with `PROCESSOR_CPU_LOAD_INFO`.
    [[nodiscard]] virtual std::optional<ProcessorLoad> processorLoad() const = 0;
    /// `host_statistics64` with `HOST_VM_INFO64`.
    [[nodiscard]] virtual std::optional<PageCounts> pageCounts() const = 0;
    /// Bytes in a page of the kernel.
    [[nodiscard]] virtual std::uint32_t pageSize() const = 0;
    [[nodiscard]] virtual std::int64_t physicalMemory() const = 0;

    /// `sysctlbyname` and `sysctl`: all bytes of the answer.
    [[nodiscard]] virtual std::optional<Bytes> systemControl(const std::string& name) const = 0;
    [[nodiscard]] virtual std::optional<Bytes> systemControl(std::span<const int> name) const = 0;

    /// The services that match a class, in the registry's order, each a dictionary with those of the named
    /// properties that it has. Nothing when the registry does not answer.
    [[nodiscard]] virtual std::optional<std::vector<Property>> services(
        const std::string& className, std::initializer_list<std::string_view> properties) const = 0;
    /// The first of them alone; no dictionary where there is none.
    [[nodiscard]] virtual Property firstService(const std::string& className,
                                                std::initializer_list<std::string_view> properties) const = 0;

    /// The descriptions of all power sources in the system's order; empty on failure.
    [[nodiscard]] virtual std::vector<Property> powerSources() const = 0;
    [[nodiscard]] virtual Property externalAdapter() const = 0;

    /// What stands under a key of the dynamic store, asked in a session of the given name.
    [[nodiscard]] virtual Property storeValue(const std::string& session, const std::string& key) const = 0;
    /// The name of the interface that is the Wi-Fi of this Mac.
    [[nodiscard]] virtual std::optional<std::string> wifiInterface() const = 0;

    /// Of the last one, five and fifteen minutes, as many as the system gave.
    [[nodiscard]] virtual std::vector<double> loadAverages() const = 0;
    /// Of the volume that holds `folder`, in bytes. May block on a slow volume.
    [[nodiscard]] virtual VolumeCapacity volumeCapacity(const std::filesystem::path& folder) const = 0;
    /// As `NSProcessInfo` counts it: 0 nominal, 1 fair, 2 serious, 3 critical.
    [[nodiscard]] virtual std::int64_t thermalState() const = 0;
    [[nodiscard]] virtual std::int64_t activeProcessors() const = 0;
};

}  // namespace tavrel
