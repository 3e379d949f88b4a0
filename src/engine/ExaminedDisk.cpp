#include "engine/ExaminedDisk.h"

#include "core/Text.h"
#include "platform/posix/RootOwnedFolders.h"

#include <algorithm>
#include <iterator>
#include <unistd.h>

namespace tavrel {

ExaminedDisk::ExaminedDisk(std::vector<std::filesystem::path> folders)
    : work_({.folders = std::move(folders), .tools = {}}, systemFolderAccess(), noCommands_) {}

Administrator::Outcome ExaminedDisk::run(const std::vector<RootStep>& steps,
                                         std::chrono::duration<double> /*timeout*/) {
    if (::geteuid() != 0)
        return tl::unexpected(
            Refusal{Refusal::Kind::unavailable,
                    Text::localized("On another disk this takes a Tavrel that runs as root")});
    std::vector<StepResult> results;
    std::transform(steps.begin(), steps.end(), std::back_inserter(results),
                   [this](const RootStep& step) { return work_.perform(step); });
    return results;
}

bool ExaminedDisk::mayRemove(const std::filesystem::path& path) const {
    return onlyRootCanReplaceFoldersAbove(path);
}

}  // namespace tavrel
