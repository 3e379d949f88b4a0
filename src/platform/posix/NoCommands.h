#pragma once

#include "core/Text.h"
#include "platform/Shell.h"

namespace tavrel {

/// Starts nothing: commands speak of the running system, not of another machine's disk.
class NoCommands final : public Shell {
  public:
    [[nodiscard]] CommandResult run(const std::string& /*path*/, const std::vector<std::string>& /*args*/,
                                    std::chrono::duration<double> /*timeout*/) override {
        return {-1, Text::localized("commands are not run on a disk that is being examined")};
    }
};

}  // namespace tavrel
