#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {

/// How a command ended. A signal that ended it stands as its number.
struct CommandResult {
    std::int32_t status = 0;  // -1 when the command could not be started
    std::string output;  // both streams in the order they came, valid UTF-8; the launch error's text on -1
};

/// Runs outside commands. No command line is ever parsed: a caller who wants a shell names one.
class Shell {
  public:
    virtual ~Shell() = default;

    /// Runs the executable at the absolute path `path` with `args` (no shell) and blocks until it ends. After
    /// `timeout` sends SIGTERM once and still waits. Returns its status and output. Not for the main thread;
    /// any other thread.
    [[nodiscard]] virtual CommandResult run(const std::string& path, const std::vector<std::string>& args,
                                            std::chrono::duration<double> timeout) = 0;
};

}  // namespace tavrel
