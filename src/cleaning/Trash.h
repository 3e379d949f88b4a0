#pragma once

#include "cleaning/Removal.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <tl/expected.hpp>

namespace tavrel {

/// Moves vetted targets to the user's Trash by a single rename(2), and back. On failure returns a message and
/// leaves the target in place. Never replaces an entry of a Trash, and never deletes what cannot be moved.
/// Blocks.
class Trash {
  public:
    using Path = std::filesystem::path;
    template <typename T>
    using Expected = tl::expected<T, Removal::Refusal>;

    /// A thing that was just moved to a Trash.
    struct Trashed {
        Path place;  // where it lies now, absolute
    };

    /// One entry of a Trash. In a Trash without notes only `place` is known.
    struct Entry {
        Path place;
        Path original;                                    // where the thing was, absolute
        std::optional<std::chrono::local_seconds> moved;  // when it came there, by the clock on the wall
    };

    /// Whether a thing is put back, or all is looked at and nothing touched.
    enum class Act { look, move };

    virtual ~Trash() = default;

    [[nodiscard]] virtual Expected<Trashed> trash(const Removal::Target& target) = 0;

    /// Reads the note on the entry at `place`. Refused unless that is in a Trash of this user, reached
    /// through no link, and noted there in a way that makes sense.
    [[nodiscard]] virtual Expected<Entry> entry(const Path& place) const = 0;
    /// All that the Trash whose things lie in the folder `contents` has notes on; nothing where a Trash keeps
    /// none.
    [[nodiscard]] virtual std::optional<std::vector<Entry>> noted(const Path& contents) const = 0;
    /// Moves an entry back to where it was, below the home or, from the Trash of another volume, on that
    /// volume, with the folders that are missing there. Never replaces anything. Refused when the note is not
    /// that of `entry` any more. After a failure the entry and its note are as they were.
    [[nodiscard]] virtual Removal::Outcome putBack(const Entry& entry, Act act) const = 0;

    /// Tidies what the Trash noted about an entry that has just been deleted from it. Nothing to do for a
    /// path that lies in no Trash.
    virtual void erased(const Path& path) = 0;

    /// The folder whose entries are what the user sees in the home Trash.
    [[nodiscard]] virtual Path contents() const = 0;
    /// The folder above `contents` from which the way down is walked, following no link.
    [[nodiscard]] virtual Path home() const = 0;
};

}  // namespace tavrel
