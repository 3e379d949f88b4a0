#pragma once

#include "cleaning/Catalog.h"
#include "cleaning/ProjectPurger.h"
#include "monitoring/ProcessNotes.h"

namespace tavrel::Mac {

/// Where junk collects in a Mac's home folder.
[[nodiscard]] Catalog catalog();

/// What software projects leave; of a project only what lies directly in it is looked at.
[[nodiscard]] ProjectPurger::Tables projects();

[[nodiscard]] ProcessNotes processNotes();

}  // namespace tavrel::Mac
