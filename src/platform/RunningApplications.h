#pragma once

#include <optional>
#include <set>
#include <string>

namespace tavrel {

/// What runs now, as the scanners compare it with the names of folders.
struct RunningApplications {
    std::set<std::string> bundleIDs;  // bundle identifiers; on Linux desktop file names and executables
    std::set<std::string> names;      // the names that people read
};

/// The name that people read for an application, by its identifier.
class ApplicationNames {
  public:
    virtual ~ApplicationNames() = default;
    [[nodiscard]] virtual std::optional<std::string> displayName(const std::string& bundleID) const = 0;
};

}  // namespace tavrel
