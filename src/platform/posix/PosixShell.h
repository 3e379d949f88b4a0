#pragma once

#include "platform/Shell.h"
#include "platform/posix/Launch.h"

namespace tavrel {

/// Runs commands as child processes. Holds no state of a run, so any number may go on at once from any
/// threads.
class PosixShell final : public Shell {
  public:
    using Terminal = ChildTerminal;

    explicit PosixShell(Terminal terminal = Terminal::none) : terminal_(terminal) {}

    [[nodiscard]] CommandResult run(const std::string& path, const std::vector<std::string>& args,
                                    std::chrono::duration<double> timeout) override;

  private:
    Terminal terminal_;
};

}  // namespace tavrel
