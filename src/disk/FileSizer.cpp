#include "disk/FileSizer.h"

#include "core/CheckedSum.h"
#include "disk/TreeWalk.h"
#include "platform/FolderReader.h"

#include <algorithm>
#include <sys/stat.h>

namespace tavrel::FileSizer {
namespace {

/// Every name of every file; folders and links are free.
class ContentSum final : public TreeVisitor {
  public:
    void take(const FolderEntry& entry, std::uint64_t /*ordinal*/, FolderTotals& totals) const override {
        if (entry.kind != FolderEntry::Kind::link) totals.bytes = addBytes(totals.bytes, entry.allocated);
        totals.newest = std::max(totals.newest, entry.modified);
    }
    void addFolder(const std::shared_ptr<WalkFolder>& /*folder*/, FolderTotals totals,
                   std::size_t /*pendingChildren*/) override {
        found_.size = addBytes(found_.size, totals.bytes);
        found_.newest = std::max(found_.newest, totals.newest);
    }
    [[nodiscard]] const Measure& found() const { return found_; }

  private:
    Measure found_;
};

/// With a slash behind it the name of a link would stand for what it points to.
std::filesystem::path withoutSlashBehind(const std::filesystem::path& path) {
    return path.has_filename() ? path : path.parent_path();
}

}  // namespace

std::int64_t size(const std::filesystem::path& of) {
    return measure(of).size;
}

Measure measure(const std::filesystem::path& of) {
    const std::filesystem::path path = withoutSlashBehind(of);
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return {};
    const Instant own = instantOf(status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
    if (S_ISLNK(status.st_mode)) return {.size = 0, .newest = own};
    if (!S_ISDIR(status.st_mode)) return {.size = status.st_blocks * blockSize, .newest = own};

    ContentSum sum;
    walkTree(path, sum);
    return {.size = sum.found().size, .newest = std::max(own, sum.found().newest)};
}

}  // namespace tavrel::FileSizer
