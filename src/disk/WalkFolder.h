#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace tavrel {

/// A folder that a walk has opened. Its chain of parents is all that the walk keeps of the way down to it,
/// and lives as long as something below is still to be done.
struct WalkFolder {
    std::shared_ptr<WalkFolder> parent;  // none at the walk's root
    std::string name;                    // at the root: the path as it was given
    std::uint64_t ordinal = 0;           // its place among its parent's entries
    int level = 0;                       // 0 at the root
    dev_t device = 0;
    ino_t inode = 0;
    std::int64_t allocated = 0;  // bytes of the folder itself
    std::size_t account = 0;     // the visitor's own number for it

    ~WalkFolder();

    /// Whether it is one of its own ancestors, as a bind mount can make it.
    [[nodiscard]] bool isCycle() const;
    [[nodiscard]] std::string path() const;
    /// The path of its entry `entryName`.
    [[nodiscard]] std::string pathOf(std::string_view entryName) const;
};

/// The place of an entry in the tree, by which the answers of a team are put in the order of a single walk.
struct WalkPosition {
    std::shared_ptr<WalkFolder> folder;
    std::uint64_t ordinal = 0;  // among the folder's entries

    /// Whether a walk in directory order meets this entry first. Both are of one walk.
    [[nodiscard]] bool precedes(const WalkPosition& other) const;
};

}  // namespace tavrel
