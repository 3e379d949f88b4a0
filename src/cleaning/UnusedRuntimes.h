#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

/// The runtimes of a Flatpak installation that no application needs, as "NAME/ARCH/BRANCH" in the order of
/// their names. Applications in `others` may need them as well. What a person has pinned and what extends
/// another runtime is none of them. Files are read as flatpak-metadata(5) describes them; where one that
/// matters cannot be read, nothing is said to be unused.
[[nodiscard]] std::vector<std::string> unusedRuntimes(const std::filesystem::path& installation,
                                                      const std::vector<std::filesystem::path>& others);

}  // namespace tavrel
