#pragma once

#include "platform/Shell.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace tavrel {

/// Runs shell text as root after asking the user, one prompt for one script.
class Administrator {
  public:
    /// Stands in the output when the user dismissed the prompt.
    static constexpr const char* dismissed = "-128";

    virtual ~Administrator() = default;

    [[nodiscard]] virtual CommandResult run(const std::string& script,
                                            std::chrono::duration<double> timeout) = 0;

    /// Whether a script that names `path` removes what it names: true only when nobody but root can put
    /// another thing in the place of any folder above it.
    [[nodiscard]] virtual bool mayName(const std::filesystem::path& path) const = 0;
};

}  // namespace tavrel
