#include "platform/linux/LinuxRunningApplications.h"

#include "core/Files.h"
#include "core/Text.h"
#include "platform/linux/DesktopEntries.h"

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

/// Under what names one process may be known; either may be empty.
struct Process {
    std::string executable;
    std::string ownName;
};

std::string executableName(const fs::path& process) {
    constexpr std::string_view replaced = " (deleted)";  // an update took the file's place meanwhile
    std::error_code error;
    std::string name = fs::read_symlink(process / "exe", error).filename().native();
    if (name.ends_with(replaced)) name.resize(name.size() - replaced.size());
    return name;
}

std::vector<Process> processes(const fs::path& procRoot) {
    const uid_t user = ::geteuid();
    std::vector<Process> found;
    for (const std::string& name : Files::names(procRoot)) {
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        struct stat status {};
        const fs::path process = procRoot / name;
        if (::stat(process.c_str(), &status) != 0 || (user != 0 && status.st_uid != user)) continue;
        found.push_back({executableName(process), Text::trimmed(Files::read(process / "comm").value_or(""))});
    }
    return found;
}

void insertUnlessEmpty(std::set<std::string>& texts, const std::string& text) {
    if (!text.empty()) texts.insert(text);
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
    for (const Process& process : processes(procRoot)) {
        insertUnlessEmpty(running.bundleIDs, process.executable);
        insertUnlessEmpty(running.bundleIDs, process.ownName);
        insertUnlessEmpty(running.names, process.executable);
    }
    RunningApplications entries;
    for (const Application& application : installedApplications(applicationFolders)) {
        if (!runs(application, running)) continue;
        entries.bundleIDs.insert(application.identifier);
        insertUnlessEmpty(entries.names, application.name);
    }
    running.bundleIDs.merge(entries.bundleIDs);
    running.names.merge(entries.names);
    return running;
}

std::optional<std::string> DesktopNames::displayName(const std::string& bundleID) const {
    std::call_once(read_, [this] {
        for (const Application& application : installedApplications(folders_)) {
            if (!application.name.empty()) names_.emplace(application.identifier, application.name);
        }
    });
    const auto found = names_.find(bundleID);
    return found == names_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace tavrel
