#pragma once

#include "cleaning/CleanItem.h"
#include "cli/Console.h"
#include "cli/Session.h"
#include "cli/SystemTools.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace tavrel::cli {

/// What to look for, and how.
struct FinderOptions {
    std::string mode = "system";
    std::vector<std::string> categories;  // all of the mode when empty
    std::optional<int> staleDays;         // the preference when absent
    int sessionAgeDays = 90;
    std::vector<std::string> projectRoots;  // the preference and what is discovered when empty
    std::vector<std::string> running;       // "identifier=name"

    /// Adds the mode and the options to a command.
    void addTo(CLI::App& command);
};

/// The finder of one mode: what it finds, and what the guard admits besides the home when that is removed.
class Finder {
  public:
    Finder(const Session& session, SystemTools& tools, const FinderOptions& options)
        : session_(session), tools_(tools), options_(options) {}

    struct Found {
        std::vector<CleanItem> items;  // in the order of the mode
        int status = 0;                // `undone` when a folder to look in does not exist
    };

    [[nodiscard]] Found find(Console& console) const;

    /// A guard of this moment for the items.
    [[nodiscard]] SafetyGuard guard() const;

    /// The word for the mode in the history.
    [[nodiscard]] static std::string action(std::string_view mode);

  private:
    using Items = std::vector<CleanItem>;

    [[nodiscard]] Items junk(Console& console) const;
    [[nodiscard]] Items ai() const;
    [[nodiscard]] Items projects() const;
    [[nodiscard]] Items installers() const;
    [[nodiscard]] std::vector<std::filesystem::path> projectRoots() const;
    [[nodiscard]] int missingRoots(Console& console) const;

    const Session& session_;
    SystemTools& tools_;
    const FinderOptions& options_;
};

}  // namespace tavrel::cli
