#pragma once

#include "disk/AnalyzeEntry.h"
#include "disk/DiskIndex.h"
#include "disk/FolderListing.h"
#include "disk/SizeCache.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavrel {

/// What the explorer shows: the things of a folder or the large files below it, in their order, with the
/// sums. Each has an id that it keeps while the order changes. Figures that come in are kept back until they
/// are published all at once, and no step of it costs more for one thing than for the order of all.
class AnalyzeContent {
  public:
    using Id = std::uint32_t;

    AnalyzeContent() = default;
    /// Ids are in the order of the names. Sizes that `known` returns are set from the beginning.
    AnalyzeContent(FolderListing listing, SizeCache::Folder known);
    explicit AnalyzeContent(const std::vector<DiskIndex::LargeFile>& files);

    [[nodiscard]] const std::vector<AnalyzeEntry>& entries() const { return entries_; }
    [[nodiscard]] Id id(std::size_t position) const { return ids_[position]; }
    /// How many ids were given; those of removed things are not given again.
    [[nodiscard]] std::size_t idCount() const { return positions_.size(); }
    [[nodiscard]] bool holds(Id id) const { return id < positions_.size() && positions_[id] != gone; }
    [[nodiscard]] std::size_t position(Id id) const { return positions_[id]; }
    [[nodiscard]] const AnalyzeEntry& entry(Id id) const { return entries_[positions_[id]]; }
    [[nodiscard]] std::optional<Id> find(std::string_view path) const;
    [[nodiscard]] bool idsFollowNames() const { return inOrderOfPaths_; }
    /// By id.
    [[nodiscard]] const FolderListing::Paths& paths() const { return paths_; }

    [[nodiscard]] std::int64_t total() const { return total_; }
    [[nodiscard]] std::int64_t totalFiles() const { return totalFiles_; }
    /// Things without a size, in the order of their ids.
    [[nodiscard]] std::vector<Id> pending() const;
    [[nodiscard]] std::size_t pendingCount() const { return pendingCount_; }
    /// The part of the total that an entry of this size is.
    [[nodiscard]] double share(const AnalyzeEntry& entry) const;
    /// How many entries are large enough for a colour of their own. They are the first ones with a size.
    [[nodiscard]] const std::vector<std::size_t>& colored() const { return colored_; }
    /// The place of a position among the coloured ones.
    [[nodiscard]] std::optional<std::size_t> colorIndex(std::size_t position) const;

    void measured(Id id, const DiskIndex::Info& info) { arrived_.emplace_back(id, info); }
    /// Lets what arrived be seen.
    void publish();
    void remove(const std::vector<Id>& ids);

  private:
    static constexpr std::size_t gone = std::numeric_limits<std::size_t>::max();

    void arrange();
    void sumUp();

    std::vector<AnalyzeEntry> entries_;
    std::vector<Id> ids_;                 // by position
    std::vector<std::size_t> positions_;  // by id
    FolderListing::Paths paths_;
    bool inOrderOfPaths_ = false;
    std::vector<std::pair<Id, DiskIndex::Info>> arrived_;

    std::int64_t total_ = 0;
    std::int64_t totalFiles_ = 0;
    std::size_t pendingCount_ = 0;
    std::vector<std::size_t> colored_;  // positions
};

}  // namespace tavrel
