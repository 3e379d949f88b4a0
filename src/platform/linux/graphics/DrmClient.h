#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// One user of a graphics device, after the kernel's documentation of DRM client usage stats: what a file of
/// /proc/N/fdinfo says of a handle on the device. Several handles may belong to one client.
struct DrmClient {
    std::string device;  // such as "0000:00:02.0"
    std::string id;
    std::optional<std::uint64_t> renderNanoseconds;
    std::optional<std::uint64_t> renderCycles;
    std::optional<std::uint64_t> totalCycles;  // of the device's own clock, while the others counted

    /// Nothing for the file of any other handle.
    [[nodiscard]] static std::optional<DrmClient> parse(std::string_view fdinfo);
};

}  // namespace tavrel
