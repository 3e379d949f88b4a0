#pragma once

#include "cleaning/Catalog.h"
#include "monitoring/ProcessNotes.h"

namespace tavrel::Mac {

/// Where junk collects in a Mac's home folder.
[[nodiscard]] Catalog catalog();

[[nodiscard]] ProcessNotes processNotes();

}  // namespace tavrel::Mac
