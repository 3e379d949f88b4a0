#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

/// One thing that a run put into the Trash. Paths are absolute and as Text::encodePath writes them.
struct TrashedItem {
    std::string path;   // where it was
    std::string place;  // its entry in the Trash
    std::int64_t size = 0;
    bool operator==(const TrashedItem&) const = default;
};

}  // namespace tavrel
