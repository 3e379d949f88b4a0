#pragma once

#include <array>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

namespace tavrel {

/// Owners of folders whose names do not identify them.
struct KnownOwner {
    std::string_view pathContains;
    std::string_view bundleIdentifier;
    std::array<std::string_view, 3> desktopEntries = {};  // the same application elsewhere; empty ones last
};

/// Where applications keep what they write, as one family of systems has it.
struct IconOwners {
    std::vector<std::filesystem::path> applicationData;  // folders in which names are those of applications
    std::span<const KnownOwner> known;                   // the first row that fits an installed one counts

    [[nodiscard]] static IconOwners macos(const std::filesystem::path& home);
    [[nodiscard]] static IconOwners linux(const std::filesystem::path& home);
};

}  // namespace tavrel
