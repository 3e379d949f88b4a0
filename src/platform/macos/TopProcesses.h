#pragma once

#include "platform/ProcessSource.h"
#include "platform/Shell.h"

namespace tavrel {

/// Processes as `top` of macOS samples them, twice, a second apart.
class TopProcesses final : public ProcessSource {
  public:
    /// `shell` outlives this object.
    explicit TopProcesses(Shell& shell) : shell_(shell) {}

    [[nodiscard]] std::vector<ProcessInfo> snapshot() override;

  private:
    Shell& shell_;
};

}  // namespace tavrel
