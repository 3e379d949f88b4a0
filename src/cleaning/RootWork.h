#pragma once

#include "platform/FolderAccess.h"
#include "platform/Shell.h"
#include "platform/root/RootStep.h"
#include "platform/root/RootTools.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace tavrel {

/// Carries out single steps as root. It trusts no step: what one names is checked against rules that the
/// asker has no part in.
class RootWork {
  public:
    struct Rules {
        /// Absolute and standardised. What lies below one may be removed.
        std::vector<std::filesystem::path> folders;
        RootTools::Table tools;
        uid_t alsoTrusted = 0;  // a user whose folders count like root's
        std::chrono::duration<double> toolLimit = std::chrono::minutes(5);
    };

    /// `access` and `shell` are borrowed for the life of this object.
    RootWork(Rules rules, const FolderAccess& access, Shell& shell)
        : rules_(std::move(rules)), access_(access), shell_(shell) {}

    /// May block as long as the removal takes, or a tool up to its limit.
    [[nodiscard]] StepResult perform(const RootStep& step) const;

  private:
    [[nodiscard]] StepResult remove(const EntryRemoval& entry) const;
    [[nodiscard]] StepResult run(const ToolRun& run) const;
    /// The folder of the rules that the path lies below.
    [[nodiscard]] const std::filesystem::path* folderAbove(const std::filesystem::path& path) const;

    Rules rules_;
    const FolderAccess& access_;
    Shell& shell_;
};

}  // namespace tavrel
