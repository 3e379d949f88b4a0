#pragma once

#include "cleaning/Catalog.h"

namespace tavrel::Mac {

/// Where junk collects in a Mac's home folder.
[[nodiscard]] Catalog catalog();

}  // namespace tavrel::Mac
