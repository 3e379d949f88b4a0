#include "platform/linux/LinuxAdministrator.h"

#include "core/Phrase.h"
#include "core/Scripts.h"
#include "core/Text.h"
#include "platform/posix/RootOwnedFolders.h"

#include <algorithm>
#include <regex>
#include <string_view>

namespace tavrel {
namespace {

// The exit statuses of pkexec, as its manual page gives them.
constexpr std::int32_t promptDismissed = 126;
constexpr std::int32_t notAuthorized = 127;
constexpr std::int32_t notStarted = -1;

/// What pkexec says when it gets no rights, and what that means.
struct Refusal {
    std::string_view said;
    Text::English meaning;
};
constexpr Refusal refusals[] = {
    {"Not authorized", "Not authorized to act as administrator"},
    {"No authentication agent found", "Nobody could be asked for the administrator's password"},
    {"Error creating textual authentication agent", "Nobody could be asked for the administrator's password"},
    {"Error getting authority", "The system's authorization service (polkit) does not answer"},
};

/// `line` without the codes that colour a terminal and without other control characters.
std::string plain(const std::string& line) {
    static const std::regex codes("\x1b\\[[0-9;?]*[@-~]");
    std::string text = std::regex_replace(line, codes, "");
    std::erase_if(text, [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; });
    return Text::trimmed(text);
}

/// Whether a library of the desktop wrote the line for developers.
bool isWarningOfALibrary(const std::string& line) {
    static const std::regex warning(R"(^(\*\* )?\([^()]*:\d+\): .*)");
    return line.size() > 500 || std::regex_match(line, warning);
}

/// The last line of `output` that is for people.
std::string lastLine(std::string_view output) {
    while (!output.empty()) {
        const std::size_t end = output.find_last_of("\r\n");
        const std::size_t begin = end == std::string_view::npos ? 0 : end + 1;
        std::string line = plain(std::string(output.substr(begin)));
        if (!line.empty() && !isWarningOfALibrary(line)) return line;
        output = output.substr(0, begin == 0 ? 0 : end);
    }
    return {};
}

std::string whyNoRights(const CommandResult& result) {
    const std::string last = lastLine(result.output);
    if (result.status == notStarted)
        return phrase("Administrator rights need pkexec, which could not be started: {}", last);
    const auto known = std::find_if(std::begin(refusals), std::end(refusals), [&](const Refusal& refusal) {
        return result.output.find(refusal.said) != std::string::npos;
    });
    if (known != std::end(refusals)) return Text::localized(known->meaning);
    if (last.empty()) return Text::localized("Administrator rights could not be obtained");
    return phrase("Administrator rights could not be obtained: {}", last);
}

}  // namespace

CommandResult LinuxAdministrator::run(const std::string& script, std::chrono::duration<double> timeout) {
    const bool asks = user_ != 0;
    CommandResult result = asks ? shell_.run("/usr/bin/pkexec", {"/bin/sh", "-c", script}, timeout)
                                : shell_.run("/bin/sh", {"-c", script}, timeout);
    if (asks && result.status == promptDismissed) {
        result.output = dismissed;
    } else if (asks && (result.status == notAuthorized || result.status == notStarted)) {
        result.output = whyNoRights(result);
    } else if (result.status != 0 && Scripts::markerResults(result.output).empty()) {
        result.output = lastLine(result.output);
    }
    return result;
}

bool LinuxAdministrator::mayName(const std::filesystem::path& path) const {
    return onlyRootCanReplaceFoldersAbove(path);
}

}  // namespace tavrel
