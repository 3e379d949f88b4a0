#pragma once

#include "disk/DiskIndex.h"
#include "disk/TreeWalk.h"

#include <deque>
#include <unordered_map>

namespace tavrel {

/// Adds up a tree. Each folder down to the recorded depth has an account; what lies deeper adds to the
/// account above it, so that nothing is kept for a file, the several names of one file apart.
class SizeAccumulator final : public TreeVisitor {
  public:
    explicit SizeAccumulator(int recordDepth) : recordDepth_(recordDepth) {}

    void take(const FolderEntry& entry, std::uint64_t ordinal, FolderTotals& totals) const override;
    void addFolder(const std::shared_ptr<WalkFolder>& folder, FolderTotals totals,
                   std::size_t pendingChildren) override;
    void folderSkipped(const WalkFolder& parent) override;

    /// The sums of what was surveyed to its end.
    [[nodiscard]] DiskIndex::Measurement result() &&;

  private:
    struct Account {
        std::size_t parent = 0;
        std::string path;
        DiskIndex::Info sum;
        std::size_t pendingChildren = 0;  // folders, and accounts below, that are not finished
    };
    /// Where a file of several names counts.
    struct Link {
        WalkPosition position;
        std::int64_t allocated = 0;
    };

    void openAccount(WalkFolder& folder);
    void settle(std::size_t account);
    void claim(const std::shared_ptr<WalkFolder>& folder, const FileCandidate& candidate);

    const int recordDepth_;
    std::deque<Account> accounts_;  // the root's first, each after the one it is part of
    std::unordered_map<std::uint64_t, Link> links_;
};

}  // namespace tavrel
