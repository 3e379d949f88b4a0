#include "cleaning/Restorer.h"

#include "cleaning/TrashNote.h"
#include "core/Files.h"
#include "core/Paths.h"
#include "core/Text.h"
#include "disk/FileSizer.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace tavrel {

namespace {

using Path = std::filesystem::path;
using std::chrono::local_seconds;

/// A record without places names things that went up to so long before the run's end.
constexpr std::chrono::hours longestRun{1};
constexpr std::chrono::minutes latestNote{1};
/// A note of a later day tells of another thing. Notes have no time zone, and zones differ by up to 26 hours.
constexpr std::chrono::hours zones{26};

Path bytes(const std::string& text) {
    return Paths::standardized(Text::decodePath(text));
}

/// What runs put into the Trashes, each entry of which only one run can have put there.
class Search {
  public:
    Search(const Trash& trash, const Restorer::Volumes& volumes) : trash_(trash), volumes_(volumes) {}

    void findRecorded(Restorer::Run& run);
    void findByNotes(Restorer::Run& run);

  private:
    [[nodiscard]] bool isThere(const Restorer::Item& item, Instant date) const;
    void readNotes();
    [[nodiscard]] const Trash::Entry* noteOf(const Path& path, local_seconds from, local_seconds to) const;
    /// Without notes nobody can tell whether an entry of that name is what the run removed.
    [[nodiscard]] bool mayBeInTrash(const Path& path) const;

    const Trash& trash_;
    const Restorer::Volumes& volumes_;
    std::set<Path> taken_;
    std::optional<std::multimap<Path, Trash::Entry>> notes_;
    bool hasNotes_ = true;
};

void Search::findRecorded(Restorer::Run& run) {
    for (const TrashedItem& item : run.entry.trashed) {
        Restorer::Item found{.path = bytes(item.path), .place = bytes(item.place), .size = item.size};
        found.present = !taken_.contains(found.place) && isThere(found, run.entry.date);
        if (found.present) taken_.insert(found.place);
        run.items.push_back(std::move(found));
    }
    const auto count = static_cast<std::size_t>(std::max<std::int64_t>(run.entry.count, 0));
    run.erased = count - std::min(count, run.items.size());
}

bool Search::isThere(const Restorer::Item& item, Instant date) const {
    const auto entry = trash_.entry(item.place);
    if (!entry) return false;
    const bool noted = !entry->original.empty();
    const bool isLater = entry->moved && *entry->moved > localTime(date) + zones;
    return !noted || (entry->original == item.path && !isLater);
}

void Search::findByNotes(Restorer::Run& run) {
    readNotes();
    const auto end = localTime(run.entry.date);
    for (const std::string& text : run.entry.paths) {
        const Path path = bytes(text);
        const Trash::Entry* const entry = noteOf(path, end - longestRun, end + latestNote);
        if (entry == nullptr) {
            if (hasNotes_ || !mayBeInTrash(path)) ++run.erased;
            continue;
        }
        taken_.insert(entry->place);
        run.items.push_back({path, entry->place, FileSizer::size(entry->place), true});
    }
}

void Search::readNotes() {
    if (notes_) return;
    notes_.emplace();
    auto folders = volumes_ ? volumes_() : std::vector<Path>();
    folders.push_back(trash_.contents());
    for (const Path& folder : folders) {
        const auto entries = trash_.noted(folder);
        if (!entries) hasNotes_ = false;
        for (const auto& entry : entries.value_or(std::vector<Trash::Entry>())) {
            if (entry.moved) notes_->emplace(entry.original, entry);
        }
    }
}

const Trash::Entry* Search::noteOf(const Path& path, local_seconds from, local_seconds to) const {
    const Trash::Entry* latest = nullptr;
    const auto [begin, end] = notes_->equal_range(path);
    for (auto each = begin; each != end; ++each) {
        const Trash::Entry& entry = each->second;
        const bool fits = *entry.moved >= from && *entry.moved <= to && !taken_.contains(entry.place);
        if (fits && (latest == nullptr || *entry.moved > *latest->moved)) latest = &entry;
    }
    return latest;
}

bool Search::mayBeInTrash(const Path& path) const {
    return Files::identifier(trash_.contents() / Paths::name(path)).has_value();
}

}  // namespace

std::size_t Restorer::Run::present() const {
    return static_cast<std::size_t>(
        std::count_if(items.begin(), items.end(), [](const Item& item) { return item.present; }));
}

Restorer::Runs Restorer::runs(std::vector<History::Entry> entries) const {
    Runs runs;
    for (auto& entry : entries) runs.push_back({.entry = std::move(entry), .items = {}, .erased = 0});
    Search search(trash_, volumes_);
    // What is recorded is certain, so it comes before what is guessed.
    for (Run& run : runs) {
        if (!run.entry.trashed.empty()) search.findRecorded(run);
    }
    for (Run& run : runs) {
        if (run.entry.trashed.empty()) search.findByNotes(run);
    }
    return runs;
}

RestoreReport Restorer::restore(const std::vector<Item>& items, Trash::Act act) const {
    RestoreReport report;
    for (auto at = items.size(); at-- > 0;) {
        const Item& item = items[at];
        const auto outcome = putBack(item, act);
        if (outcome) {
            report.restored.push_back(item.path);
        } else {
            report.skipped.push_back({item.path, outcome.error().reason});
        }
    }
    return report;
}

Removal::Outcome Restorer::putBack(const Item& item, Trash::Act act) const {
    if (item.present) return trash_.putBack({.place = item.place, .original = item.path, .moved = {}}, act);
    const auto entry = trash_.entry(item.place);
    if (!entry) return tl::unexpected(entry.error());
    return tl::unexpected(Removal::Refusal{Text::localized("It is not in the Trash any more")});
}

}  // namespace tavrel
