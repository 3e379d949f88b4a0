#pragma once

#include <string>
#include <vector>

/// Shell texts that run a whole batch behind one password prompt.
namespace tavrel::Scripts {

/// Runs every command, even after one failed; the exit status is 1 if any did.
[[nodiscard]] std::string statusBatch(const std::vector<std::string>& commands);

}  // namespace tavrel::Scripts
