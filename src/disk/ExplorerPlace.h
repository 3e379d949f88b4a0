#pragma once

#include "core/Text.h"

#include <string>
#include <string_view>

namespace tavrel {

/// A folder that the explorer offers to go to, where it exists.
struct ExplorerPlace {
    std::string path;     // "~/x" below the home, "/x" below the root
    Text::English title;  // empty: the folder's own name
    std::string_view symbol;
};

}  // namespace tavrel
