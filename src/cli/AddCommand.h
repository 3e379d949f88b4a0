#pragma once

#include "cli/Commands.h"
#include "core/Text.h"

#include <memory>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace tavrel::cli {

/// Adds a command to the command line. A `Kind` holds its options, adds them with `addTo(CLI::App&)`, and
/// acts on them with `run(const GlobalOptions&, Console&)`, which gives the exit status.
template <typename Kind>
void addCommand(CLI::App& app, Command& chosen, const char* name, Text::English description) {
    const auto kind = std::make_shared<Kind>();
    CLI::App* const command = app.add_subcommand(name, Text::localized(description));
    command->group(Text::localized("Commands"));
    kind->addTo(*command);
    command->callback([kind, &chosen] {
        chosen = [kind](const GlobalOptions& global, Console& console) { return kind->run(global, console); };
    });
}

}  // namespace tavrel::cli
