#pragma once

#include "cleaning/CleanRule.h"
#include "cleaning/ProjectPurger.h"
#include "monitoring/ProcessNotes.h"

namespace tavrel::Mac {

/// Where junk collects and how to treat it, in the order of scanning: the special places first, the catch-all
/// folders last.
[[nodiscard]] std::vector<CleanRule> rules();

/// What software projects leave; of a project only what lies directly in it is looked at.
[[nodiscard]] ProjectPurger::Tables projects();

[[nodiscard]] ProcessNotes processNotes();

}  // namespace tavrel::Mac
