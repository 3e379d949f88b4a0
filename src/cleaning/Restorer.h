#pragma once

#include "cleaning/History.h"
#include "cleaning/Trash.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tavrel {

/// What a restore did, or in a preview would have done.
struct RestoreReport {
    struct Skipped {
        std::filesystem::path path;
        std::string reason;  // in the user's words
    };
    std::vector<std::filesystem::path> restored;
    std::vector<Skipped> skipped;
};

/// Brings back from the Trash what runs put there. The record of a run names the entries; the notes of the
/// Trash decide whether an entry still is what the run put there. Runs of before there was such a record are
/// looked for in the notes alone.
class Restorer {
  public:
    using Path = std::filesystem::path;

    /// One thing that a run put into the Trash.
    struct Item {
        Path path;   // where it was
        Path place;  // in the Trash
        std::int64_t size = 0;
        bool present = false;  // whether it still lies there
    };
    struct Run {
        History::Entry entry;
        std::vector<Item> items;  // in the order in which they went
        std::size_t erased = 0;   // how many things of the run are in no Trash: they are gone for good

        [[nodiscard]] std::size_t present() const;
    };
    using Runs = std::vector<Run>;

    /// `volumes` returns the contents folders of the Trashes on other volumes. `runs` calls it if it needs
    /// them; it may be empty. `trash` is borrowed.
    using Volumes = std::function<std::vector<Path>()>;
    Restorer(const Trash& trash, Volumes volumes) : trash_(trash), volumes_(std::move(volumes)) {}

    /// The runs of a record, in its order (newest first), each with what of it lies in a Trash. Blocks.
    [[nodiscard]] Runs runs(std::vector<History::Entry> entries) const;

    /// Puts the items that are present back to where they were, the last one first, since an earlier one may
    /// have been inside a later one. Those that are not present are skipped with a reason.
    [[nodiscard]] RestoreReport restore(const std::vector<Item>& items, Trash::Act act) const;

  private:
    [[nodiscard]] Removal::Outcome putBack(const Item& item, Trash::Act act) const;

    const Trash& trash_;
    Volumes volumes_;
};

}  // namespace tavrel
