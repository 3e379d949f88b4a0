#pragma once

#include "cleaning/CleanPhase.h"
#include "cleaning/Restorer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// What a clean says of itself, in the user's language: the one wording of window and command line.
namespace tavrel::CleanTexts {

/// The figures of a list that its headline shows.
struct Figures {
    std::size_t items = 0;
    std::size_t categories = 0;
    std::int64_t total = 0;                 // bytes of all items
    std::int64_t selected = 0;              // bytes of the chosen ones
    std::optional<std::int64_t> remaining;  // bytes still to fall, while something falls
};

/// Title and subtitle of a screen before its first scan.
struct Idle {
    std::string title;
    std::string subtitle;
};

[[nodiscard]] std::string heroTitle(const CleanPhase& phase, const Figures& figures, const Idle& idle);
[[nodiscard]] std::string heroSubtitle(const CleanPhase& phase, const Figures& figures, const Idle& idle);

/// What the item frees; says so where only its command knows that.
[[nodiscard]] std::string size(const CleanItem& item);

/// Why things were skipped, the most frequent reason first, one a line; empty when nothing was.
[[nodiscard]] std::string reasons(const CleanReport& report);
[[nodiscard]] std::string reasons(const RestoreReport& report);

/// One line on what a clean did or, in a preview, would have done.
[[nodiscard]] std::string banner(const CleanReport& report);
/// One line on what a restore put back or, in a preview, would have.
[[nodiscard]] std::string putBack(const RestoreReport& report);
[[nodiscard]] std::string wouldPutBack(const RestoreReport& report);

/// Sentences for items of a run that cannot be put back.
[[nodiscard]] std::string erased(std::size_t count);
[[nodiscard]] std::string notInTrash(std::size_t count);

}  // namespace tavrel::CleanTexts
