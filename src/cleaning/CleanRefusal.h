#pragma once

#include "cleaning/CleanReport.h"

#include <vector>

namespace tavrel {

/// The report of a clean that may not begin, since nobody knows which folders the user barred.
[[nodiscard]] CleanReport refusalWithoutProtectedPaths(const std::vector<CleanItem>& items);

}  // namespace tavrel
