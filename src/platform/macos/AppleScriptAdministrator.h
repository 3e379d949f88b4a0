#pragma once

#include "platform/Administrator.h"

namespace tavrel {

/// Root through the scripting tool of macOS and its password prompt. A dismissal stands in the tool's own
/// words.
class AppleScriptAdministrator final : public Administrator {
  public:
    /// `shell` outlives this object.
    explicit AppleScriptAdministrator(Shell& shell) : shell_(shell) {}

    [[nodiscard]] CommandResult run(const std::string& script,
                                    std::chrono::duration<double> timeout) override;
    [[nodiscard]] bool mayName(const std::filesystem::path& path) const override;

  private:
    Shell& shell_;
};

}  // namespace tavrel
