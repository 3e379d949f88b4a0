#pragma once

#include "cli/Commands.h"
#include "cli/GlobalOptions.h"

#include <tl/expected.hpp>

namespace tavrel::cli {

/// A command line that makes sense.
struct CommandLine {
    GlobalOptions global;
    Command command;

    /// The error is the exit status, where nothing is left to do: help was shown, or the mistake was named in
    /// one line on standard error.
    [[nodiscard]] static tl::expected<CommandLine, int> parse(int argc, const char* const* argv);
};

}  // namespace tavrel::cli
