#pragma once

#include "cleaning/CleanItem.h"

#include <filesystem>
#include <string>
#include <vector>

/// Which of the found items are meant.
namespace tavrel::cli::Selection {

using Items = std::vector<CleanItem>;

/// What is chosen for a person who does not choose: the items that need no second look.
[[nodiscard]] Items preselected(const Items& found);

/// The items that a person named, in the order they were found, and the names that fit none of them.
struct Named {
    Items items;
    std::vector<std::string> missing;
};

/// Each name is a command as it stands in the list, or a path, as its bytes or in the escaped form of the
/// JSON output; a relative one counts from `workingFolder`. The bytes come first: the escaped reading only
/// counts where they name no item.
[[nodiscard]] Named named(const Items& found, const std::vector<std::string>& names,
                          const std::filesystem::path& workingFolder);

}  // namespace tavrel::cli::Selection
