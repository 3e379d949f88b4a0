#include "disk/FtsOracle.h"

#include <algorithm>
#include <array>
#include <fts.h>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel::testing {
namespace {

void walk(const std::filesystem::path& root, Descent descent,
          const std::function<void(FTS*, FTSENT*)>& visit) {
    std::string path = root.native();
    const std::array<char*, 2> roots = {path.data(), nullptr};
    const int howDown = descent == Descent::byPath ? FTS_NOCHDIR : 0;
    const std::unique_ptr<FTS, int (*)(FTS*)> tree(
        fts_open(roots.data(), howDown | FTS_PHYSICAL | FTS_XDEV, nullptr), &fts_close);
    if (!tree) return;
    while (FTSENT* entry = fts_read(tree.get())) visit(tree.get(), entry);
}

std::int64_t bytesOf(const FTSENT& entry) {
    return entry.fts_statp->st_blocks * 512;
}

bool isLeaf(const FTSENT& entry) {
    return entry.fts_info == FTS_F || entry.fts_info == FTS_SL || entry.fts_info == FTS_SLNONE ||
           entry.fts_info == FTS_DEFAULT;
}

}  // namespace

DiskIndex::Measurement ftsMeasure(const std::filesystem::path& path, int recordDepth, Descent descent) {
    DiskIndex::Measurement result;
    std::set<std::uint64_t> seen;
    std::vector<DiskIndex::Info> open = {
        {}};  // the sums of the folders on the way down; the first is the tree's
    walk(path, descent, [&](FTS* /*tree*/, FTSENT* entry) {
        const auto level = static_cast<std::size_t>(entry->fts_level);
        if (entry->fts_info == FTS_D) {
            open.resize(level + 1);
            open.push_back({});
        } else if (isLeaf(*entry)) {
            const struct stat& status = *entry->fts_statp;
            const auto device = static_cast<std::int32_t>(status.st_dev);
            const std::uint64_t key = static_cast<std::uint64_t>(device) * 31 + status.st_ino;
            if (entry->fts_info == FTS_F && status.st_nlink > 1 && !seen.insert(key).second) return;
            open[level].size += bytesOf(*entry);
            open[level].files += 1;
        } else if (entry->fts_info == FTS_DP) {
            const DiskIndex::Info sum = {open[level + 1].size + bytesOf(*entry), open[level + 1].files};
            open[level].size += sum.size;
            open[level].files += sum.files;
            if (level > 0 && entry->fts_level <= recordDepth) result.folders[entry->fts_path] = sum;
        }
    });
    result.size = open.front().size;
    result.files = open.front().files;
    return result;
}

std::vector<DiskIndex::LargeFile> ftsLargeFiles(const std::filesystem::path& under, std::int64_t minimum,
                                                std::size_t limit) {
    std::vector<DiskIndex::LargeFile> found;
    walk(under, Descent::byPath, [&](FTS* tree, FTSENT* entry) {
        const std::string path = entry->fts_path;
        if (entry->fts_info == FTS_F && bytesOf(*entry) >= minimum) found.push_back({path, bytesOf(*entry)});
        const bool isClosed = path.ends_with(".photoslibrary") || path.ends_with(".musiclibrary") ||
                              path.ends_with(".tvlibrary");
        if (entry->fts_info == FTS_D && isClosed) fts_set(tree, entry, FTS_SKIP);
    });
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.size > b.size; });
    if (found.size() > limit) found.resize(limit);
    return found;
}

std::int64_t ftsContentSize(const std::filesystem::path& path) {
    std::int64_t sum = 0;
    walk(path, Descent::byPath, [&](FTS* /*tree*/, FTSENT* entry) {
        if (entry->fts_info == FTS_F || entry->fts_info == FTS_DEFAULT) sum += bytesOf(*entry);
    });
    return sum;
}

void ftsRemove(const std::filesystem::path& path) {
    walk(path, Descent::byWorkingFolder, [](FTS* /*tree*/, FTSENT* entry) {
        if (entry->fts_info == FTS_DP) ::rmdir(entry->fts_accpath);
        if (isLeaf(*entry)) ::unlink(entry->fts_accpath);
    });
}

}  // namespace tavrel::testing
