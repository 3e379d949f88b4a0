#pragma once

#include "cli/Console.h"
#include "cli/GlobalOptions.h"

#include <functional>

namespace CLI {
class App;
}

namespace tavrel::cli {

/// A command with its own options, ready to run; gives the exit status.
using Command = std::function<int(const GlobalOptions& global, Console& console)>;

/// Each of these adds one command to the command line; parsing that command sets `chosen`.
namespace Commands {

void addScan(CLI::App& app, Command& chosen);
void addClean(CLI::App& app, Command& chosen);
void addCheck(CLI::App& app, Command& chosen);
void addSize(CLI::App& app, Command& chosen);
void addMeasure(CLI::App& app, Command& chosen);
void addLarge(CLI::App& app, Command& chosen);
void addExplore(CLI::App& app, Command& chosen);
void addHistory(CLI::App& app, Command& chosen);
void addRestore(CLI::App& app, Command& chosen);
void addSettings(CLI::App& app, Command& chosen);
void addStatus(CLI::App& app, Command& chosen);
void addWatch(CLI::App& app, Command& chosen);

}  // namespace Commands
}  // namespace tavrel::cli
