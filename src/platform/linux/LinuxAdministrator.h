#pragma once

#include "platform/Administrator.h"
#include "platform/posix/Launch.h"

#include <filesystem>
#include <optional>
#include <sys/types.h>
#include <unistd.h>

namespace tavrel {

/// Root's work through a small program of our own, which polkit's prompt starts as root; no prompt where this
/// program runs as root already. The helper checks every step itself (`RootWork`).
class LinuxAdministrator final : public Administrator {
  public:
    struct Programs {
        std::filesystem::path pkexec = "/usr/bin/pkexec";
        /// Nothing when there is no helper that may be started as root.
        std::optional<std::filesystem::path> helper = findHelper();
    };

    /// `prompting` says where the question for a password may be asked besides the desktop's own dialog.
    explicit LinuxAdministrator(ChildTerminal prompting)
        : LinuxAdministrator(prompting, ::geteuid(), Programs()) {}
    LinuxAdministrator(ChildTerminal prompting, uid_t user, Programs programs)
        : prompting_(prompting), user_(user), programs_(std::move(programs)) {}

    [[nodiscard]] Outcome run(const std::vector<RootStep>& steps,
                              std::chrono::duration<double> timeout) override;
    [[nodiscard]] bool mayRemove(const std::filesystem::path& path) const override;

    /// The helper that was installed, if root alone can change it; else, in a build tree, the one beside this
    /// program, if nobody but root and this user can.
    [[nodiscard]] static std::optional<std::filesystem::path> findHelper();

  private:
    [[nodiscard]] bool asks() const { return user_ != 0; }

    ChildTerminal prompting_;
    uid_t user_;
    Programs programs_;
};

}  // namespace tavrel
