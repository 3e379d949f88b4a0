#pragma once

#include "cleaning/CleanRule.h"

#include <vector>

namespace tavrel {

/// The vocabulary of the scan: where junk collects and how to treat it. A profile fills the groups; what
/// needs more than a path belongs to the special scanners.
struct Catalog {
    using Rules = std::vector<CleanRule>;

    Rules xcode;
    Rules packageManagers;
    Rules devCaches;
    Rules ideCaches;
    Rules appCaches;
    Rules editors;
    Rules browsers;
    Rules generic;

    /// All groups in the order of scanning: the special places first, the catch-all folders last.
    [[nodiscard]] Rules rules() const;
};

}  // namespace tavrel
