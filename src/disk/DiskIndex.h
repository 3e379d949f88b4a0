#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <stop_token>
#include <string>
#include <unordered_map>
#include <vector>

/// The walker's answers: what a tree occupies, and the largest files in it. Both block, both stop early when
/// asked to, and neither answer depends on the number of threads.
namespace tavrel::DiskIndex {

struct Info {
    std::int64_t size = 0;   // allocated bytes
    std::int64_t files = 0;  // at any depth; folders are not counted
    bool operator==(const Info&) const = default;
};

struct Measurement {
    std::int64_t size = 0;
    std::int64_t files = 0;
    std::unordered_map<std::string, Info> folders;  // by full path, levels 1 to the recorded depth
};

struct LargeFile {
    std::string path;
    std::int64_t size = 0;  // allocated bytes
    bool operator==(const LargeFile&) const = default;
};

/// The tree below `path`, which may itself be a file. Folders and links count their own blocks, a hard-linked
/// file counts once, where a walk in directory order first meets it. Other file systems are not entered.
/// Nothing is skipped by name. A path that cannot be opened gives zeros; a stopped walk gives zeros and the
/// folders that were finished. `threads` of 0 means as many as the machine has processors. `progress`, where
/// given, counts up while the walk goes on, and stands still while it hangs.
[[nodiscard]] Measurement measure(const std::filesystem::path& path, int recordDepth,
                                  std::stop_token stop = {}, unsigned threads = 0,
                                  std::atomic<std::uint64_t>* progress = nullptr);

/// Files of at least `minimum` allocated bytes, largest first, equal ones in the order of the walk, at most
/// `limit`. Photo, music and TV libraries are not entered. A stopped walk gives what it has.
[[nodiscard]] std::vector<LargeFile> largeFiles(const std::filesystem::path& under, std::int64_t minimum,
                                                std::size_t limit, std::stop_token stop = {},
                                                unsigned threads = 0);

}  // namespace tavrel::DiskIndex
