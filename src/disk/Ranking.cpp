#include "disk/Ranking.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavrel {
namespace {

/// Libraries whose files belong to the program that keeps them: nobody picks single files out of these.
constexpr std::array<std::string_view, 3> closedLibraries = {".photoslibrary", ".musiclibrary", ".tvlibrary"};

/// Keeps the first `limit` in rank of one folder's candidates, so that a folder of a million files costs no
/// more memory than the answer.
void trim(std::vector<FileCandidate>& candidates, std::size_t limit) {
    const auto outranks = [](const FileCandidate& a, const FileCandidate& b) {
        return a.allocated != b.allocated ? a.allocated > b.allocated : a.ordinal < b.ordinal;
    };
    const auto end = candidates.begin() + static_cast<std::ptrdiff_t>(limit);
    std::nth_element(candidates.begin(), end, candidates.end(), outranks);
    candidates.erase(end, candidates.end());
}

}  // namespace

bool Ranking::enters(std::string_view name) const {
    return std::ranges::none_of(closedLibraries,
                                [&](std::string_view ending) { return name.ends_with(ending); });
}

void Ranking::take(const FolderEntry& entry, std::uint64_t ordinal, FolderTotals& totals) const {
    if (entry.kind != FolderEntry::Kind::file || entry.allocated < floor_.load(std::memory_order_relaxed))
        return;
    totals.candidates.push_back(
        {.ordinal = ordinal, .allocated = entry.allocated, .name = std::string(entry.name)});
    if (totals.candidates.size() / 2 > limit_) trim(totals.candidates, limit_);
}

void Ranking::addFolder(const std::shared_ptr<WalkFolder>& folder, FolderTotals totals,
                        std::size_t /*pendingChildren*/) {
    for (FileCandidate& candidate : totals.candidates) {
        heap_.push_back({candidate.allocated, {folder, candidate.ordinal}, std::move(candidate.name)});
        std::ranges::push_heap(heap_, outranks);
        if (heap_.size() <= limit_) continue;
        std::ranges::pop_heap(heap_, outranks);
        heap_.pop_back();
        floor_.store(heap_.front().allocated, std::memory_order_relaxed);
    }
}

bool Ranking::outranks(const Candidate& a, const Candidate& b) {
    return a.allocated != b.allocated ? a.allocated > b.allocated : a.position.precedes(b.position);
}

std::vector<DiskIndex::LargeFile> Ranking::result() && {
    std::ranges::sort_heap(heap_, outranks);
    std::vector<DiskIndex::LargeFile> files;
    files.reserve(heap_.size());
    for (const Candidate& found : heap_) {
        files.push_back({.path = found.position.folder->pathOf(found.name), .size = found.allocated});
    }
    return files;
}

}  // namespace tavrel
