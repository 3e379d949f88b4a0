#include "engine/SystemTools.h"

#include "cleaning/FlatTrash.h"
#include "cleaning/FreedesktopTrash.h"
#include "engine/ExaminedDisk.h"
#include "platform/FolderAccess.h"
#include "platform/linux/LinuxAdministrator.h"
#include "platform/linux/processes/LinuxRunningApplications.h"
#include "platform/macos/AppleScriptAdministrator.h"
#include "platform/macos/BundleNames.h"
#include "platform/posix/NoCommands.h"
#include "platform/posix/PosixShell.h"

#include <chrono>
#include <unistd.h>

namespace tavrel {

namespace {

using Path = std::filesystem::path;

/// Where the desktop entries of the system lie that is looked at; the environment speaks of this machine
/// alone.
std::vector<Path> desktopEntries(const Places& places) {
    if (places.isRunningSystem()) return applicationFolders(places.home());
    return {
        places.resolve("/usr/share/applications"),
        places.resolve("/var/lib/flatpak/exports/share/applications"),
        places.resolve("~/.local/share/flatpak/exports/share/applications"),
    };
}

std::unique_ptr<Shell> shellFor(const Places& places) {
    if (places.isRunningSystem()) return std::make_unique<PosixShell>();
    return std::make_unique<NoCommands>();
}

/// Asks the way that this very machine asks, whatever system is looked at.
std::unique_ptr<Administrator> administratorFor(const Profile& profile, Shell& shell,
                                                ChildTerminal prompting) {
    if (Profiles::ofThisSystem() == Profile::Family::macos)
        return std::make_unique<AppleScriptAdministrator>(shell);
    if (!profile.places.isRunningSystem()) return std::make_unique<ExaminedDisk>(profile.scan.system.roots);
    return std::make_unique<LinuxAdministrator>(prompting);
}

std::unique_ptr<Trash> trashFor(const Profile& profile) {
    const Path& home = profile.places.home();
    const Path folder = profile.places.trash().lexically_relative(home);
    if (profile.trashLayout == Profile::TrashLayout::flat) {
        return std::make_unique<FlatTrash>(systemFolderAccess(), home, folder, ::getuid());
    }
    return std::make_unique<FreedesktopTrash>(systemFolderAccess(), home, folder, ::getuid());
}

std::unique_ptr<ApplicationNames> namesFor(const Profile& profile, const std::vector<Path>& folders) {
    if (profile.family == Profile::Family::macos)
        return std::make_unique<BundleNames>(profile.places.applications());
    return std::make_unique<DesktopNames>(folders);
}

}  // namespace

SystemTools::SystemTools(const Profile& profile, PosixShell::Terminal prompting)
    : isRunningSystem_(profile.places.isRunningSystem()),
      applicationFolders_(desktopEntries(profile.places)),
      shell_(shellFor(profile.places)),
      prompting_(prompting),
      administrator_(administratorFor(profile, prompting_, prompting)),
      trash_(trashFor(profile)),
      names_(namesFor(profile, applicationFolders_)) {}

RunningApplications SystemTools::running() const {
    if (!isRunningSystem_) return {};
    return runningApplications("/proc", applicationFolders_);
}

Cleaner::Tools SystemTools::cleaner(const Profile& profile) {
    Cleaner::Tools tools{
        .access = systemFolderAccess(),
        .trash = *trash_,
        .administrator = *administrator_,
        .systemRoots = profile.scan.system.roots,
        .history = profile.places.history(),
        .now = [] { return Instant(std::chrono::system_clock::now()); },
    };
    if (isRunningSystem_ && profile.family == Profile::Family::linux)
        tools.running = [this] { return running(); };
    tools.shell = shell_.get();
    return tools;
}

}  // namespace tavrel
