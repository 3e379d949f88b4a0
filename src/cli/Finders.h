#pragma once

#include "cleaning/CleanItem.h"
#include "cli/Console.h"
#include "cli/Session.h"
#include "cli/Syntax.h"
#include "engine/Finders.h"
#include "engine/SystemTools.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tavrel::cli {

/// What to look for, and how.
struct FinderOptions {
    std::string mode = "system";
    std::vector<std::string> categories;  // all of the mode when empty
    std::optional<int> staleDays;         // the preference when absent
    int sessionAgeDays = ScanOptions().sessionAgeDays;
    std::vector<std::string> projectRoots;  // the preference and what is discovered when empty
    std::vector<std::string> running;       // "identifier=name"

    /// `running` with the programs of the option of that name.
    [[nodiscard]] RunningApplications withNamed(RunningApplications applications) const;
    /// Adds the mode and the options to a command.
    void addTo(Syntax& syntax);

    /// What makes no sense about them, for the user of `command`.
    [[nodiscard]] std::optional<std::string> mistake(const std::string& command) const;
};

/// The finder of one mode: what it finds, and what the guard admits besides the home when that is removed.
class Finder {
  public:
    Finder(const Session& session, const SystemTools& tools, const FinderOptions& options);

    struct Found {
        std::vector<CleanItem> items;  // in the order of the mode
        int status = 0;                // `undone` when a folder to look in does not exist
    };

    [[nodiscard]] Found find(Console& console) const;

    /// Which other modes find what is called by `names`, or this one without its categories; what none finds
    /// is left out. Looks at the disk once more.
    [[nodiscard]] std::map<std::string, CleanMode> otherModes(const std::vector<std::string>& names) const;

    /// A guard of this moment for the items.
    [[nodiscard]] SafetyGuard guard() const;

    /// The word for the mode in the history.
    [[nodiscard]] std::string action() const { return std::string(CleanModes::action(mode_)); }

  private:
    [[nodiscard]] int missingRoots(Console& console) const;

    const Session& session_;
    const SystemTools& tools_;
    const FinderOptions& options_;
    Finders finders_;
    CleanMode mode_;
};

}  // namespace tavrel::cli
