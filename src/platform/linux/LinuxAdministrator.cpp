#include "platform/linux/LinuxAdministrator.h"

#include "core/Phrase.h"
#include "core/Text.h"
#include "platform/posix/Conversation.h"
#include "platform/posix/RootOwnedFolders.h"
#include "platform/root/LastLine.h"
#include "platform/root/RootProtocol.h"

#include <algorithm>
#include <string_view>
#include <system_error>

namespace tavrel {
namespace {

using Path = std::filesystem::path;
using Kind = Administrator::Refusal::Kind;

// The exit statuses of pkexec, as its manual page gives them.
constexpr int promptDismissed = 126;
constexpr int notAuthorized = 127;

/// What pkexec says when it gets no rights, and what that means.
struct Meaning {
    std::string_view said;
    Text::English meaning;
};
constexpr Meaning meanings[] = {
    {"Not authorized", "Not authorized to act as administrator"},
    {"No authentication agent found", "Nobody could be asked for the administrator's password"},
    {"Error creating textual authentication agent", "Nobody could be asked for the administrator's password"},
    {"Error getting authority", "The system's authorization service (polkit) does not answer"},
};

tl::unexpected<Administrator::Refusal> refused(Kind kind, std::string message) {
    return tl::unexpected(Administrator::Refusal{kind, std::move(message)});
}

std::string whyNoRights(const std::string& errors) {
    const auto known = std::find_if(std::begin(meanings), std::end(meanings), [&](const Meaning& row) {
        return errors.find(row.said) != std::string::npos;
    });
    if (known != std::end(meanings)) return Text::localized(known->meaning);
    const std::string last = Text::replaceInvalidUtf8(lastLine(errors));
    if (last.empty()) return Text::localized("Administrator rights could not be obtained");
    return phrase("Administrator rights could not be obtained: {}", last);
}

std::string tookTooLong() {
    return Text::localized("It took too long");
}

/// Why there is no helper at the other end.
tl::unexpected<Administrator::Refusal> notReady(Conversation& helper, bool asked) {
    const auto status = helper.end();
    if (!status) return refused(Kind::timedOut, tookTooLong());
    if (asked && status == promptDismissed)
        return refused(Kind::dismissed, Text::localized("Password prompt cancelled"));
    if (asked && status == notAuthorized) return refused(Kind::unavailable, whyNoRights(helper.errors()));
    const std::string last = Text::replaceInvalidUtf8(lastLine(helper.errors()));
    return refused(Kind::unavailable, phrase("Tavrel's helper for administrator work failed: {}",
                                             last.empty() ? std::to_string(*status) : last));
}

/// Sends all steps and takes one answer for each.
std::vector<StepResult> carryOut(Conversation& helper, const std::vector<RootStep>& steps) {
    for (const RootStep& step : steps) helper.say(RootProtocol::line(step));
    std::vector<StepResult> results;
    while (results.size() < steps.size()) {
        const auto answer = helper.hear();
        if (!answer) break;
        results.push_back(RootProtocol::result(*answer));
    }
    if (results.size() < steps.size()) {
        const auto why =
            helper.isTimeUp()
                ? tookTooLong()
                : Text::localized("Tavrel's helper for administrator work ended before it was done");
        results.resize(steps.size(), StepResult::failed(why));
    }
    return results;
}

Conversation::Clock::time_point momentAfter(std::chrono::duration<double> timeout) {
    return Conversation::Clock::now() + std::chrono::duration_cast<Conversation::Clock::duration>(timeout);
}

}  // namespace

Administrator::Outcome LinuxAdministrator::run(const std::vector<RootStep>& steps,
                                               std::chrono::duration<double> timeout) {
    if (!programs_.helper)
        return refused(
            Kind::unavailable,
            Text::localized("Tavrel's helper for administrator work is not installed, or others than "
                            "the administrator can change it"));
    std::vector<std::string> command;
    if (asks()) command.push_back(programs_.pkexec);
    // Without a terminal of its own pkexec must not ask on the one that the program was started from.
    if (asks() && prompting_ == ChildTerminal::none) command.emplace_back("--disable-internal-agent");
    command.push_back(*programs_.helper);

    auto helper = Conversation::start(command.front(), {command.begin() + 1, command.end()}, prompting_,
                                      momentAfter(timeout));
    if (!helper) {
        const std::string error = helper.error().message();
        return refused(Kind::unavailable,
                       asks()
                           ? phrase("Administrator rights need pkexec, which could not be started: {}", error)
                           : phrase("Tavrel's helper for administrator work failed: {}", error));
    }
    if ((*helper)->hear() != RootProtocol::ready) return notReady(**helper, asks());
    return carryOut(**helper, steps);
}

bool LinuxAdministrator::mayRemove(const Path& path) const {
    return onlyRootCanReplaceFoldersAbove(path);
}

std::optional<Path> LinuxAdministrator::findHelper() {
    const Path installed = TAVREL_ROOT_HELPER;
    if (onlyRootCanChangeProgram(installed)) return installed;
    std::error_code failure;
    const Path program = std::filesystem::read_symlink("/proc/self/exe", failure);
    const Path beside = program.parent_path() / installed.filename();
    if (failure || !onlyRootCanChangeProgram(beside, ::getuid())) return std::nullopt;
    return beside;
}

}  // namespace tavrel
