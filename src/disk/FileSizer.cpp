#include "disk/FileSizer.h"

#include "core/CheckedSum.h"
#include "disk/TreeWalk.h"

#include <sys/stat.h>

namespace tavrel::FileSizer {
namespace {

constexpr std::int64_t blockSize = 512;  // the unit of st_blocks

/// Every name of every file; folders and links are free.
class ContentSum final : public Survey {
  public:
    void take(const FolderEntry& entry, std::uint64_t /*ordinal*/, Haul& haul) const override {
        if (entry.kind != FolderEntry::Kind::link) haul.bytes = addBytes(haul.bytes, entry.allocated);
    }
    void gather(const std::shared_ptr<WalkFolder>& /*folder*/, Haul haul, std::size_t /*toCome*/) override {
        bytes_ = addBytes(bytes_, haul.bytes);
    }
    [[nodiscard]] std::int64_t bytes() const { return bytes_; }

  private:
    std::int64_t bytes_ = 0;
};

/// With a slash behind it the name of a link would stand for what it points to.
std::filesystem::path withoutSlashBehind(const std::filesystem::path& path) {
    return path.has_filename() ? path : path.parent_path();
}

}  // namespace

std::int64_t size(const std::filesystem::path& of) {
    const std::filesystem::path path = withoutSlashBehind(of);
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0 || S_ISLNK(status.st_mode)) return 0;
    if (!S_ISDIR(status.st_mode)) return status.st_blocks * blockSize;

    ContentSum sum;
    walkTree(path, sum);
    return sum.bytes();
}

}  // namespace tavrel::FileSizer
