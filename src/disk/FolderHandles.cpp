#include "disk/FolderHandles.h"

#include "disk/WalkFolder.h"

#include <algorithm>

namespace tavrel {

void FolderHandles::keep(std::shared_ptr<WalkFolder> folder, Shared handle) {
    if (find(*folder)) return;
    if (kept_.size() == most) kept_.pop_front();
    kept_.emplace_back(std::move(folder), std::move(handle));
}

FolderHandles::Shared FolderHandles::find(const WalkFolder& folder) const {
    const auto found = std::find_if(kept_.rbegin(), kept_.rend(),
                                    [&](const auto& kept) { return kept.first.get() == &folder; });
    return found == kept_.rend() ? nullptr : found->second;
}

void FolderHandles::drop(const WalkFolder& folder) {
    std::erase_if(kept_, [&](const auto& kept) { return kept.first.get() == &folder; });
}

}  // namespace tavrel
