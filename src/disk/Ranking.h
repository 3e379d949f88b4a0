#pragma once

#include "disk/DiskIndex.h"
#include "disk/TreeWalk.h"

#include <atomic>
#include <cstddef>
#include <vector>

namespace tavrel {

/// Finds the largest files of a tree and keeps no more of them than are asked for.
class Ranking final : public TreeVisitor {
  public:
    /// Files of at least `minimum` allocated bytes, at most `limit` of them, which is at least 1.
    Ranking(std::int64_t minimum, std::size_t limit) : floor_(minimum), limit_(limit) {}

    [[nodiscard]] bool enters(std::string_view name) const override;
    void take(const FolderEntry& entry, std::uint64_t ordinal, FolderTotals& totals) const override;
    void addFolder(const std::shared_ptr<WalkFolder>& folder, FolderTotals totals,
                   std::size_t pendingChildren) override;

    /// Largest first, equal ones in the order of the walk.
    [[nodiscard]] std::vector<DiskIndex::LargeFile> result() &&;

  private:
    struct Candidate {
        std::int64_t allocated = 0;
        WalkPosition position;
        std::string name;
    };
    static bool outranks(const Candidate& a, const Candidate& b);

    std::atomic<std::int64_t> floor_;  // what is smaller cannot be among the answers
    const std::size_t limit_;
    std::vector<Candidate> heap_;  // the last in rank on top
};

}  // namespace tavrel
