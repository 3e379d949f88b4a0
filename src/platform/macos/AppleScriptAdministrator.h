#pragma once

#include "platform/Administrator.h"
#include "platform/Shell.h"

namespace tavrel {

/// Root through the scripting tool of macOS and its password prompt: the whole batch is one shell script,
/// whose one exit status says only whether all went well. After a failure an entry counts as removed if
/// nothing stands at its path any more.
class AppleScriptAdministrator final : public Administrator {
  public:
    /// `shell` outlives this object.
    explicit AppleScriptAdministrator(Shell& shell) : shell_(shell) {}

    [[nodiscard]] Outcome run(const std::vector<RootStep>& steps,
                              std::chrono::duration<double> timeout) override;
    [[nodiscard]] bool mayRemove(const std::filesystem::path& path) const override;

  private:
    Shell& shell_;
};

}  // namespace tavrel
