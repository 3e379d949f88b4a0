#include "disk/SizeAccumulator.h"

#include "core/CheckedSum.h"

#include <utility>

namespace tavrel {
namespace {

/// One number for a file, whatever its name: the device as the 32 bits that it has always had, and the inode.
std::uint64_t linkKey(const FolderEntry& entry) {
    const auto device = static_cast<std::int32_t>(entry.device);
    return static_cast<std::uint64_t>(device) * 31 + entry.inode;
}

void add(DiskIndex::Info& sum, std::int64_t bytes, std::int64_t files) {
    sum.size = addBytes(sum.size, bytes);
    sum.files += files;
}

}  // namespace

void SizeAccumulator::take(const FolderEntry& entry, std::uint64_t ordinal, FolderTotals& totals) const {
    if (entry.kind == FolderEntry::Kind::file && entry.links > 1) {
        totals.candidates.push_back(
            {.ordinal = ordinal, .allocated = entry.allocated, .key = linkKey(entry)});
    } else {
        totals.bytes = addBytes(totals.bytes, entry.allocated);
        ++totals.files;
    }
}

void SizeAccumulator::addFolder(const std::shared_ptr<WalkFolder>& folder, FolderTotals totals,
                                std::size_t pendingChildren) {
    openAccount(*folder);
    Account& account = accounts_[folder->account];
    add(account.sum, addBytes(totals.bytes, folder->allocated), totals.files);
    for (const FileCandidate& candidate : totals.candidates) claim(folder, candidate);
    account.pendingChildren += pendingChildren;
    settle(folder->account);
}

void SizeAccumulator::folderSkipped(const WalkFolder& parent) {
    settle(parent.account);
}

/// A folder without an account of its own was counted as to come in the account above; one with its own
/// counts there until all below it is finished.
void SizeAccumulator::openAccount(WalkFolder& folder) {
    const std::size_t above = folder.parent ? folder.parent->account : 0;
    if (folder.parent && folder.level > recordDepth_) {
        folder.account = above;
        return;
    }
    folder.account = accounts_.size();
    accounts_.push_back(
        {.parent = above, .path = folder.parent ? folder.path() : std::string(), .pendingChildren = 1});
}

/// One thing less to come; a finished account is one thing less for the account above.
void SizeAccumulator::settle(std::size_t account) {
    while (--accounts_[account].pendingChildren == 0 && account != 0) account = accounts_[account].parent;
}

void SizeAccumulator::claim(const std::shared_ptr<WalkFolder>& folder, const FileCandidate& candidate) {
    Link link{.position = {folder, candidate.ordinal}, .allocated = candidate.allocated};
    const auto [known, isNew] = links_.try_emplace(candidate.key, link);
    if (!isNew && link.position.precedes(known->second.position)) known->second = std::move(link);
}

DiskIndex::Measurement SizeAccumulator::result() && {
    DiskIndex::Measurement measurement;
    for (const auto& [key, link] : links_)
        add(accounts_[link.position.folder->account].sum, link.allocated, 1);
    for (; accounts_.size() > 1; accounts_.pop_back()) {
        Account& account = accounts_.back();
        add(accounts_[account.parent].sum, account.sum.size, account.sum.files);
        if (account.pendingChildren == 0) measurement.folders.emplace(std::move(account.path), account.sum);
    }
    if (!accounts_.empty() && accounts_.front().pendingChildren == 0) {
        measurement.size = accounts_.front().sum.size;
        measurement.files = accounts_.front().sum.files;
    }
    return measurement;
}

}  // namespace tavrel
