#pragma once

#include "disk/WalkFolder.h"
#include "platform/FolderReader.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// A file that a visitor wants to judge with regard to others.
struct FileCandidate {
    std::uint64_t ordinal = 0;  // among the entries of its folder
    std::int64_t allocated = 0;
    std::uint64_t key = 0;  // of what it is, where names may stand for one thing
    std::string name;       // where it will be reported
};

/// Totals of the direct entries of one folder, sub-folders excluded. `bytes` is allocated size.
struct FolderTotals {
    std::int64_t bytes = 0;
    std::int64_t files = 0;
    Instant newest = distantPast;  // date of what is no folder
    std::vector<FileCandidate> candidates;
};

/// What a walk is for. The first two are called by any thread of the team, the others by one at a time.
class TreeVisitor {
  public:
    virtual ~TreeVisitor() = default;

    /// Whether to open a sub-folder of this name.
    [[nodiscard]] virtual bool enters(std::string_view name) const;
    /// An entry that was measured and is no folder.
    virtual void take(const FolderEntry& entry, std::uint64_t ordinal, FolderTotals& totals) const = 0;

    /// A folder was opened and its entries were taken; on another device than the root it is not read.
    /// `pendingChildren` counts what is missing before everything below it is known: its sub-folders, and one
    /// more when the walk was stopped before the folder's end.
    virtual void addFolder(const std::shared_ptr<WalkFolder>& folder, FolderTotals totals,
                           std::size_t pendingChildren) = 0;
    /// One of the sub-folders to come of `parent` cannot be opened or is its own ancestor.
    virtual void folderSkipped(const WalkFolder& parent);
};

struct WalkOptions {
    std::stop_token stop;  // looked at every 4096 entries a thread
    unsigned threads = 0;  // 0: as many as the machine has processors, within reason
    std::atomic<std::uint64_t>* progress = nullptr;  // counts up with each folder and every 4096 entries
};

/// Walks the folder `root` without following a link or entering another device, and returns when all of it
/// was surveyed or the stop was seen. Folders are taken by a team of threads in no certain order; what
/// depends on the order compares positions. A root that cannot be opened as a folder is an empty tree.
void walkTree(const std::filesystem::path& root, TreeVisitor& visitor, const WalkOptions& options = {});

}  // namespace tavrel
