#include "platform/linux/processes/LinuxRunningApplications.h"

#include "core/Files.h"
#include "core/Paths.h"
#include "core/Text.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/processes/RunningProcess.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

/// The kernel keeps this many bytes of the name that a process gives itself (proc(5), "comm").
constexpr std::size_t keptNameLength = 15;

struct Application {
    std::string identifier;
    std::string name;
    std::string program;  // the name of what the entry starts; may be empty
};

std::string baseName(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

/// The program behind the wrappers that entries use: "env NAME=value program", "flatpak run
/// --command=program".
std::string programOf(const std::vector<std::string>& command) {
    constexpr std::string_view flatpakCommand = "--command=";
    auto word = command.begin();
    while (word != command.end() && (baseName(*word) == "env" || word->find('=') < word->find('/'))) ++word;
    if (word == command.end()) return {};
    if (baseName(*word) != "flatpak") return baseName(*word);
    for (const std::string& option : command) {
        if (option.starts_with(flatpakCommand)) return baseName(option.substr(flatpakCommand.size()));
    }
    return {};
}

std::vector<Application> installedApplications(const std::vector<fs::path>& folders) {
    std::vector<Application> found;
    for (const InstalledEntry& each : installedEntries(folders)) {
        found.push_back(
            {each.identifier, each.entry.value("Name").value_or(""), programOf(each.entry.command())});
    }
    return found;
}

/// The processes of this user, for root those of all; nothing when they cannot be listed.
std::optional<std::vector<RunningProcess>> processes(const fs::path& procRoot) {
    const uid_t user = ::geteuid();
    std::vector<RunningProcess> found;
    const auto names = Files::names(procRoot);
    const std::string self = std::to_string(::getpid());
    for (const std::string& name : names) {
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        struct stat status {};
        const fs::path process = procRoot / name;
        if (::stat(process.c_str(), &status) != 0 || (user != 0 && status.st_uid != user)) continue;
        found.push_back(RunningProcess::read(process));
        // This program opens folders only to look at them.
        if (name == self) found.back().files.clear();
    }
    return names.empty() ? std::nullopt : std::optional(std::move(found));
}

void insertUnlessEmpty(std::set<std::string>& texts, const std::string& text) {
    if (!text.empty()) texts.insert(text);
}

/// "Signal" of "org.signal.Signal".
std::string lastPart(const std::string& identifier) {
    return identifier.substr(identifier.rfind('.') + 1);
}

bool runs(const Application& application, const RunningApplications& running) {
    return !application.program.empty() &&
           (running.bundleIDs.contains(application.program) ||
            running.bundleIDs.contains(application.program.substr(0, keptNameLength)));
}

}  // namespace

std::vector<fs::path> applicationFolders(const fs::path& home) {
    const auto orDefault = [](const char* variable, const std::string& standard) {
        const char* value = std::getenv(variable);
        return value == nullptr || *value == '\0' ? standard : std::string(value);
    };
    const std::string dataHome = orDefault("XDG_DATA_HOME", home / ".local/share");
    std::string all = dataHome + ":" + (home / ".local/share/flatpak/exports/share").native() + ":" +
                      orDefault("XDG_DATA_DIRS", "/usr/local/share:/usr/share") +
                      ":/var/lib/flatpak/exports/share:/var/lib/snapd/desktop:";
    std::vector<fs::path> folders;
    for (std::size_t end = all.find(':'); end != std::string::npos; end = all.find(':')) {
        const fs::path folder = fs::path(all.substr(0, end)) / "applications";
        all.erase(0, end + 1);
        const bool known = std::find(folders.begin(), folders.end(), folder) != folders.end();
        if (folder.is_absolute() && !known) folders.push_back(folder);
    }
    return folders;
}

RunningApplications runningApplications(const fs::path& procRoot,
                                        const std::vector<fs::path>& applicationFolders) {
    RunningApplications running;
    const auto listed = processes(procRoot);
    if (!listed) return {.bundleIDs = {}, .names = {}, .files = {}, .complete = false};
    for (const RunningProcess& process : *listed) {
        running.add(process.executable, process.executable);
        for (const std::string& name : process.names) running.add(name, {});
        for (const fs::path& file : process.files) running.files.insert(file.native());
    }
    RunningApplications entries;
    for (const Application& application : installedApplications(applicationFolders)) {
        if (!runs(application, running)) continue;
        entries.add(application.identifier, application.name);
    }
    running.bundleIDs.merge(entries.bundleIDs);
    running.names.merge(entries.names);
    return running;
}

const DesktopNames::Installed& DesktopNames::installed() const {
    std::call_once(read_, [this] {
        for (const InstalledEntry& each : installedEntries(folders_)) {
            const auto command = each.entry.command();
            const std::string name = each.entry.value("Name").value_or("");
            if (!name.empty()) installed_.names.emplace(each.identifier, name);
            insertUnlessEmpty(installed_.known, Text::lowercased(each.identifier));
            insertUnlessEmpty(installed_.known, Text::lowercased(lastPart(each.identifier)));
            insertUnlessEmpty(installed_.known, Text::lowercased(programOf(command)));
            for (const std::string& word : command) {
                if (word.starts_with('/')) installed_.started.insert(Paths::resolved(word).native());
            }
            if (const auto tried = each.entry.value("TryExec"); tried && tried->starts_with('/'))
                installed_.started.insert(Paths::resolved(*tried).native());
        }
    });
    return installed_;
}

std::optional<std::string> DesktopNames::displayName(const std::string& bundleID) const {
    const auto& names = installed().names;
    const auto found = names.find(bundleID);
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

bool DesktopNames::isInstalled(const std::string& name) const {
    return installed().known.contains(Text::lowercased(name));
}

bool DesktopNames::isStarted(const fs::path& file) const {
    return installed().started.contains(Paths::resolved(file).native());
}

}  // namespace tavrel
