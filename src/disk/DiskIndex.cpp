#include "disk/DiskIndex.h"

#include "disk/Ranking.h"
#include "disk/SizeAccumulator.h"
#include "disk/TreeWalk.h"
#include "platform/FolderReader.h"

#include <sys/stat.h>
#include <utility>

namespace tavrel::DiskIndex {
namespace {}  // namespace

Measurement measure(const std::filesystem::path& path, int recordDepth, std::stop_token stop,
                    unsigned threads, std::atomic<std::uint64_t>* progress) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return {};
    if (!S_ISDIR(status.st_mode)) return {.size = status.st_blocks * blockSize, .files = 1, .folders = {}};

    SizeAccumulator tally(recordDepth);
    walkTree(path, tally, {.stop = std::move(stop), .threads = threads, .progress = progress});
    return std::move(tally).result();
}

std::vector<LargeFile> largeFiles(const std::filesystem::path& under, std::int64_t minimum, std::size_t limit,
                                  std::stop_token stop, unsigned threads) {
    struct stat status {};
    if (limit == 0 || ::lstat(under.c_str(), &status) != 0) return {};
    if (S_ISREG(status.st_mode)) {
        const std::int64_t allocated = status.st_blocks * blockSize;
        if (allocated < minimum) return {};
        return {{.path = under.native(), .size = allocated}};
    }

    Ranking ranking(minimum, limit);
    if (ranking.enters(under.native()))
        walkTree(under, ranking, {.stop = std::move(stop), .threads = threads});
    return std::move(ranking).result();
}

}  // namespace tavrel::DiskIndex
