#include "platform/linux/LinuxAdministrator.h"

#include "core/Text.h"
#include "platform/posix/RootOwnedFolders.h"

namespace tavrel {
namespace {

// The exit statuses of pkexec, as its manual page gives them.
constexpr std::int32_t promptDismissed = 126;
constexpr std::int32_t notAuthorized = 127;
constexpr std::int32_t notStarted = -1;

void addLine(std::string& text, const std::string& line) {
    if (!text.empty() && !line.empty() && !text.ends_with('\n')) text += '\n';
    text += line;
}

}  // namespace

CommandResult LinuxAdministrator::run(const std::string& script, std::chrono::duration<double> timeout) {
    if (user_ == 0) return shell_.run("/bin/sh", {"-c", script}, timeout);

    CommandResult result = shell_.run("/usr/bin/pkexec", {"/bin/sh", "-c", script}, timeout);
    if (result.status == promptDismissed) {
        addLine(result.output, dismissed);
    } else if (result.status == notAuthorized || result.status == notStarted) {
        std::string sentence = Text::localized("Administrator rights could not be obtained.");
        addLine(sentence, result.output);
        result.output = std::move(sentence);
    }
    return result;
}

bool LinuxAdministrator::mayName(const std::filesystem::path& path) const {
    return onlyRootCanReplaceFoldersAbove(path);
}

}  // namespace tavrel
