#pragma once

#include "cleaning/Removal.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

/// The user's Trash as an operation: move a vetted thing there, whole, in one rename, or fail with a text and
/// leave it where it was. Nothing in a Trash is ever replaced, and what cannot be moved is never deleted
/// instead.
class Trash {
  public:
    virtual ~Trash() = default;

    [[nodiscard]] virtual Removal::Outcome trash(const Removal::Target& target) = 0;

    /// Tidies what the Trash noted about an entry that has just been deleted from it. Nothing to do for a
    /// path that lies in no Trash.
    virtual void erased(const std::filesystem::path& path) = 0;

    /// The folder whose entries are what the user sees in the home Trash.
    [[nodiscard]] virtual std::filesystem::path contents() const = 0;
    /// The folder above `contents` from which the way down is walked, following no link.
    [[nodiscard]] virtual std::filesystem::path home() const = 0;
};

}  // namespace tavrel
