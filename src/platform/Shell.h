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

/// Runs outside commands. No command line is ever parsed: whoever wants a shell names one.
class Shell {
  public:
    virtual ~Shell() = default;

    /// Starts the executable at the full path `path` and waits for it. After `timeout` it is told to
    /// terminate, once; the answer is then whatever it wrote and ended with. Blocks, so never on the main
    /// thread.
    [[nodiscard]] virtual CommandResult run(const std::string& path, const std::vector<std::string>& args,
                                            std::chrono::duration<double> timeout) = 0;
};

}  // namespace tavrel
