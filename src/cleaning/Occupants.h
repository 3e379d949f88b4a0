#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

/// Which programs work with an item while they run.
struct Occupants {
    std::vector<std::string> identifiers;  // as RunningApplications::bundleIDs
    std::vector<std::string> names;        // as RunningApplications::names
    std::vector<std::filesystem::path>
        profiles;  // folders in which a program keeps a lock and its open files

    bool operator==(const Occupants&) const = default;
};

}  // namespace tavrel
