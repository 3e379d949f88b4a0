#pragma once

#include "platform/Administrator.h"

#include <sys/types.h>
#include <unistd.h>

namespace tavrel {

/// Root through polkit's prompt; no prompt where the program runs as root already. What a failed script or a
/// failed prompt wrote is reduced to one line for a person, unless the script marked its steps.
class LinuxAdministrator final : public Administrator {
  public:
    /// `shell` outlives this object.
    explicit LinuxAdministrator(Shell& shell, uid_t user = ::geteuid()) : shell_(shell), user_(user) {}

    [[nodiscard]] CommandResult run(const std::string& script,
                                    std::chrono::duration<double> timeout) override;
    [[nodiscard]] bool mayName(const std::filesystem::path& path) const override;

  private:
    Shell& shell_;
    uid_t user_;
};

}  // namespace tavrel
