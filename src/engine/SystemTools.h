#pragma once

#include "cleaning/Cleaner.h"
#include "cleaning/Trash.h"
#include "platform/Administrator.h"
#include "platform/RunningApplications.h"
#include "platform/Shell.h"
#include "platform/posix/PosixShell.h"
#include "profiles/Profile.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace tavrel {

/// What stands in for the operating system in one run. On a disk that is only examined no tool of this
/// machine is asked and none of its programs counts as running; a process of root still removes what is
/// chosen there.
class SystemTools {
  public:
    /// `prompting` says where the question for a password may be asked besides the desktop's own dialog.
    explicit SystemTools(const Profile& profile, PosixShell::Terminal prompting = PosixShell::Terminal::none);

    [[nodiscard]] Shell& shell() const { return *shell_; }
    [[nodiscard]] Administrator& administrator() { return *administrator_; }
    [[nodiscard]] Trash& trash() { return *trash_; }
    [[nodiscard]] const ApplicationNames& names() const { return *names_; }
    [[nodiscard]] RunningApplications running() const;
    /// What a cleaner of this profile works with; borrowed from here. Where the programs of the profile
    /// cannot be running nothing asks for them.
    [[nodiscard]] Cleaner::Tools cleaner(const Profile& profile);

  private:
    bool isRunningSystem_;
    std::vector<std::filesystem::path> applicationFolders_;
    std::unique_ptr<Shell> shell_;
    PosixShell prompting_;
    std::unique_ptr<Administrator> administrator_;
    std::unique_ptr<Trash> trash_;
    std::unique_ptr<ApplicationNames> names_;
};

}  // namespace tavrel
