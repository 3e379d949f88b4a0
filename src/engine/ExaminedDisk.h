#pragma once

#include "cleaning/RootWork.h"
#include "platform/Administrator.h"
#include "platform/posix/NoCommands.h"

#include <filesystem>
#include <vector>

namespace tavrel {

/// Root's work on a disk that is only examined: done by this very process when it runs as root. The helper
/// for root's work knows the folders of the running system alone. No tool is run.
class ExaminedDisk final : public Administrator {
  public:
    /// `folders` are those of the disk whose entries root may remove.
    explicit ExaminedDisk(std::vector<std::filesystem::path> folders);

    [[nodiscard]] Outcome run(const std::vector<RootStep>& steps,
                              std::chrono::duration<double> timeout) override;
    [[nodiscard]] bool mayRemove(const std::filesystem::path& path) const override;

  private:
    NoCommands noCommands_;
    RootWork work_;
};

}  // namespace tavrel
