#include "disk/WalkFolder.h"

#include "core/Paths.h"

#include <atomic>
#include <utility>
#include <vector>

namespace tavrel {

WalkFolder::~WalkFolder() {
    // A deep chain is let go in a loop: left to the members it would nest one call a level.
    while (parent && parent.use_count() == 1) {
        std::atomic_thread_fence(std::memory_order_acquire);  // the count itself is read relaxed
        parent = std::move(parent->parent);
    }
}

bool WalkFolder::isCycle() const {
    for (const WalkFolder* above = parent.get(); above != nullptr; above = above->parent.get()) {
        if (above->inode == inode && above->device == device) return true;
    }
    return false;
}

std::string WalkFolder::path() const {
    std::vector<const WalkFolder*> way;
    for (const WalkFolder* at = this; at != nullptr; at = at->parent.get()) way.push_back(at);
    std::string text = way.back()->name;
    way.pop_back();
    for (; !way.empty(); way.pop_back()) text = Paths::joined(std::move(text), way.back()->name);
    return text;
}

std::string WalkFolder::pathOf(std::string_view entryName) const {
    return Paths::joined(path(), entryName);
}

bool WalkPosition::precedes(const WalkPosition& other) const {
    const WalkFolder* mine = folder.get();
    const WalkFolder* theirs = other.folder.get();
    std::uint64_t myOrdinal = ordinal;
    std::uint64_t theirOrdinal = other.ordinal;
    const auto ascend = [](const WalkFolder*& from, std::uint64_t& place) {
        place = from->ordinal;
        from = from->parent.get();
    };
    while (mine->level > theirs->level) ascend(mine, myOrdinal);
    while (theirs->level > mine->level) ascend(theirs, theirOrdinal);
    while (mine != theirs) {
        ascend(mine, myOrdinal);
        ascend(theirs, theirOrdinal);
    }
    return myOrdinal < theirOrdinal;
}

}  // namespace tavrel
