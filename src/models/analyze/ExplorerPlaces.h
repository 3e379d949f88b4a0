#pragma once

#include "core/Places.h"
#include "disk/ExplorerPlace.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// The folders that the explorer offers to go to, as far as this disk has them. A folder of a dead network
/// mount can block.
namespace ExplorerPlaces {

struct Found {
    std::filesystem::path path;
    std::string title;  // in the user's language
    std::string symbol;

    bool operator==(const Found&) const = default;
};

[[nodiscard]] std::vector<Found> folders(const Places& places, std::span<const ExplorerPlace> offered);
/// What is mounted in `parents`, where a last part of "*" stands for every folder.
[[nodiscard]] std::vector<Found> volumes(const Places& places, std::span<const std::string_view> parents);

}  // namespace ExplorerPlaces
}  // namespace tavrel
