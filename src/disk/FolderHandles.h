#pragma once

#include "core/FileHandle.h"

#include <deque>
#include <memory>
#include <utility>

namespace tavrel {

struct WalkFolder;

/// The handles that a walk keeps open for the sub-folders still to come. However deep the tree, there are
/// few: the longest kept one gives way, which in a walk that goes down first is the one needed last. Not safe
/// from several threads at once; the walk's own lock guards it.
class FolderHandles {
  public:
    /// Callers share ownership of a handle, so that eviction never closes it during a call.
    using Shared = std::shared_ptr<const FileHandle>;

    static constexpr std::size_t most = 24;

    /// Keeps the handle until it is dropped or gives way; a folder that has one keeps that.
    void keep(std::shared_ptr<WalkFolder> folder, Shared handle);
    /// Nothing when it was never kept or gave way.
    [[nodiscard]] Shared find(const WalkFolder& folder) const;
    void drop(const WalkFolder& folder);

  private:
    std::deque<std::pair<std::shared_ptr<WalkFolder>, Shared>> kept_;  // longest kept first
};

}  // namespace tavrel
