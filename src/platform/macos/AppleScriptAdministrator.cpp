#include "platform/macos/AppleScriptAdministrator.h"

#include "core/Quoting.h"
#include "core/Text.h"
#include "platform/macos/Scripts.h"
#include "platform/posix/RootOwnedFolders.h"
#include "platform/root/RootTools.h"

#include <cerrno>
#include <sys/stat.h>

namespace tavrel {

namespace {

/// Stands in the tool's output when the user dismissed the prompt.
constexpr std::string_view dismissed = "-128";

/// The shell text for a step; nothing for a tool with arguments that it does not take.
std::optional<std::string> command(const RootStep& step) {
    if (const auto* run = std::get_if<ToolRun>(&step)) return RootTools::commandLine(*run);
    return "/bin/rm -rf -- " + Quoting::shell(std::get<EntryRemoval>(step).path.native());
}

bool isGone(const RootStep& step) {
    const auto* entry = std::get_if<EntryRemoval>(&step);
    struct stat status {};
    return entry != nullptr && ::lstat(entry->path.c_str(), &status) != 0 &&
           (errno == ENOENT || errno == ENOTDIR);
}

}  // namespace

Administrator::Outcome AppleScriptAdministrator::run(const std::vector<RootStep>& steps,
                                                     std::chrono::duration<double> timeout) {
    std::vector<StepResult> results(steps.size());
    std::vector<std::string> commands;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (auto line = command(steps[i])) {
            commands.push_back(std::move(*line));
        } else {
            results[i] = StepResult::refused(RootRefusal::badArguments);
        }
    }
    if (commands.empty()) return results;

    const std::string line = "do shell script \"" + Quoting::appleScript(Scripts::statusBatch(commands)) +
                             "\" with administrator privileges";
    const CommandResult said = shell_.run("/usr/bin/osascript", {"-e", line}, timeout);
    if (said.status == 0) return results;
    if (said.output.find(dismissed) != std::string::npos) {
        return tl::unexpected(
            Refusal{Refusal::Kind::dismissed, Text::localized("Password prompt cancelled")});
    }
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (results[i].isDone() && !isGone(steps[i]))
            results[i] = StepResult::failed(Text::trimmed(said.output));
    }
    return results;
}

bool AppleScriptAdministrator::mayRemove(const std::filesystem::path& path) const {
    return onlyRootCanReplaceFoldersAbove(path);
}

}  // namespace tavrel
