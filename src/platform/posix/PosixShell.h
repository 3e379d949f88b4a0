#pragma once

#include "platform/Shell.h"

namespace tavrel {

/// Runs commands as child processes, each in a session of its own: no terminal to stop at, one group to
/// signal. Holds nothing, so any number of runs may go on at once from any threads.
class PosixShell final : public Shell {
  public:
    [[nodiscard]] CommandResult run(const std::string& path, const std::vector<std::string>& args,
                                    std::chrono::duration<double> timeout) override;
};

}  // namespace tavrel
