#include "models/analyze/AnalyzeContent.h"

#include "core/CheckedSum.h"
#include "disk/OrbitLayout.h"
#include "models/analyze/AnalyzeOrder.h"

#include <algorithm>
#include <numeric>

namespace tavrel {

AnalyzeContent::AnalyzeContent(FolderListing listing, SizeCache::Folder known)
    : entries_(std::move(listing.all)), paths_(std::move(listing.paths)), inOrderOfPaths_(true) {
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        AnalyzeEntry& entry = entries_[at];
        if (entry.size) continue;
        if (const auto info = known.find(SizeKey::of((*paths_)[at]).name)) {
            entry.size = info->size;
            entry.files = info->files;
        }
    }
    ids_.resize(entries_.size());
    std::iota(ids_.begin(), ids_.end(), Id(0));
    positions_.resize(entries_.size(), gone);
    arrange();
}

AnalyzeContent::AnalyzeContent(const std::vector<DiskIndex::LargeFile>& files) {
    auto paths = std::make_shared<std::vector<std::string>>();
    for (const auto& file : files) {
        entries_.push_back({.url = file.path, .size = file.size, .files = 1});
        paths->push_back(file.path);
    }
    paths_ = std::move(paths);
    ids_.resize(entries_.size());
    std::iota(ids_.begin(), ids_.end(), Id(0));
    positions_.resize(entries_.size(), gone);
    arrange();
}

std::optional<AnalyzeContent::Id> AnalyzeContent::find(std::string_view path) const {
    if (!paths_) return std::nullopt;
    const auto found = inOrderOfPaths_ ? std::lower_bound(paths_->begin(), paths_->end(), path)
                                       : std::find(paths_->begin(), paths_->end(), path);
    if (found == paths_->end() || *found != path) return std::nullopt;
    const auto id = static_cast<Id>(found - paths_->begin());
    return holds(id) ? std::optional(id) : std::nullopt;
}

std::vector<AnalyzeContent::Id> AnalyzeContent::pending() const {
    std::vector<Id> ids;
    for (Id id = 0; id < positions_.size(); ++id) {
        if (holds(id) && !entry(id).size) ids.push_back(id);
    }
    return ids;
}

double AnalyzeContent::share(const AnalyzeEntry& entry) const {
    if (total_ <= 0) return 0;
    return static_cast<double>(entry.size.value_or(0)) / static_cast<double>(total_);
}

std::optional<std::size_t> AnalyzeContent::colorIndex(std::size_t position) const {
    const auto found = std::lower_bound(colored_.begin(), colored_.end(), position);
    if (found == colored_.end() || *found != position) return std::nullopt;
    return static_cast<std::size_t>(found - colored_.begin());
}

void AnalyzeContent::publish() {
    for (const auto& [id, info] : arrived_) {
        if (!holds(id)) continue;
        AnalyzeEntry& entry = entries_[positions_[id]];
        entry.size = info.size;
        entry.files = info.files;
    }
    arrived_.clear();
    arrange();
}

void AnalyzeContent::remove(const std::vector<Id>& ids) {
    for (const Id id : ids) positions_[id] = gone;
    std::size_t kept = 0;
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        if (positions_[ids_[at]] == gone) continue;
        if (kept != at) entries_[kept] = std::move(entries_[at]);
        ids_[kept] = ids_[at];
        ++kept;
    }
    entries_.resize(kept);
    ids_.resize(kept);
    arrange();
}

/// Sorts small keys and moves each entry once.
void AnalyzeContent::arrange() {
    std::vector<AnalyzeOrder::Key> keys;
    keys.reserve(entries_.size());
    for (std::size_t at = 0; at < entries_.size(); ++at) keys.push_back({entries_[at].size, ids_[at]});
    std::vector<AnalyzeEntry> entries;
    std::vector<Id> ids;
    entries.reserve(entries_.size());
    ids.reserve(ids_.size());
    for (const std::uint32_t from : AnalyzeOrder::sorted(keys)) {
        entries.push_back(std::move(entries_[from]));
        ids.push_back(ids_[from]);
        positions_[ids_[from]] = ids.size() - 1;
    }
    entries_ = std::move(entries);
    ids_ = std::move(ids);
    sumUp();
}

void AnalyzeContent::sumUp() {
    total_ = 0;
    totalFiles_ = 0;
    pendingCount_ = 0;
    for (const AnalyzeEntry& entry : entries_) {
        total_ = addBytes(total_, entry.size.value_or(0));
        totalFiles_ += entry.files.value_or(0);
        if (!entry.size) ++pendingCount_;
    }
    colored_.clear();
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        if (OrbitChart::hasOwnArc(entries_[at].size.value_or(0), total_)) colored_.push_back(at);
    }
}

}  // namespace tavrel
