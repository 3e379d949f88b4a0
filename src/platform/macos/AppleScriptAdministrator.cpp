#include "platform/macos/AppleScriptAdministrator.h"

#include "core/Quoting.h"
#include "platform/posix/RootOwnedFolders.h"

namespace tavrel {

CommandResult AppleScriptAdministrator::run(const std::string& script,
                                            std::chrono::duration<double> timeout) {
    const std::string line =
        "do shell script \"" + Quoting::appleScript(script) + "\" with administrator privileges";
    return shell_.run("/usr/bin/osascript", {"-e", line}, timeout);
}

bool AppleScriptAdministrator::mayName(const std::filesystem::path& path) const {
    return onlyRootCanReplaceFoldersAbove(path);
}

}  // namespace tavrel
