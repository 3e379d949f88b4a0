#pragma once

#include "platform/Shell.h"

namespace tavrel {

/// Runs commands as child processes. Holds no state of a run, so any number may go on at once from any
/// threads.
class PosixShell final : public Shell {
  public:
    /// `none`: each command in a session of its own, with no terminal to stop at and one group to signal.
    /// `shared`: the command stays in the foreground of this program's terminal, where it can ask for a
    /// password.
    enum class Terminal { none, shared };

    explicit PosixShell(Terminal terminal = Terminal::none) : terminal_(terminal) {}

    [[nodiscard]] CommandResult run(const std::string& path, const std::vector<std::string>& args,
                                    std::chrono::duration<double> timeout) override;

  private:
    Terminal terminal_;
};

}  // namespace tavrel
