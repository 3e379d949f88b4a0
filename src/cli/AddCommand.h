#pragma once

#include "cli/Commands.h"
#include "cli/Syntax.h"
#include "core/Text.h"

#include <memory>

namespace tavrel::cli {

/// Adds a command to the command line. A `Kind` holds its options, adds them with `addTo(Syntax&)`, and acts
/// on them with `run(const GlobalOptions&, Console&)`, which returns the exit status.
template <typename Kind>
void addCommand(CLI::App& app, Command& chosen, const char* name, Text::English description) {
    const auto kind = std::make_shared<Kind>();
    Syntax syntax = Syntax::ofCommand(app, name, Text::localized(description), [kind, &chosen] {
        chosen = [kind](const GlobalOptions& global, Console& console) { return kind->run(global, console); };
    });
    kind->addTo(syntax);
}

}  // namespace tavrel::cli
