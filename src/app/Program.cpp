#include "app/Program.h"

#include "platform/FolderAccess.h"
#include "platform/desktop/QtSoundPlayer.h"
#include "platform/desktop/ThemeIconSource.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/desktop/LinuxLaunchAtLogin.h"
#include "platform/linux/processes/LinuxRunningApplications.h"

#include <QCoreApplication>
#include <QFile>
#include <utility>

namespace tavrel {

namespace {

std::filesystem::path thisProgram() {
    return QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString();
}

IconOwners ownersOf(const Profile& profile) {
    const auto& home = profile.places.home();
    return profile.family == Profile::Family::macos ? IconOwners::macos(home) : IconOwners::linux(home);
}

}  // namespace

Program::Parts Program::partsOf(Profile profile, Start start) {
    const auto home = profile.places.home();
    const auto autostart = profile.places.autostart();
    const auto how =
        start == Start::byLogin ? LinuxLaunchAtLogin::Start::byLogin : LinuxLaunchAtLogin::Start::byUser;
    return {
        .profile = std::move(profile),
        .clock = systemClock(),
        .launchAtLogin = std::make_unique<LinuxLaunchAtLogin>(autostart, thisProgram(), how),
        .soundPlayer = std::make_unique<QtSoundPlayer>(),
        .icons = std::make_unique<ThemeIconSource>(applicationFolders(home)),
        .machine = Machine::running(home),
    };
}

Program::Program(Parts parts)
    : parts_(std::move(parts)),
      defaults_(parts_.profile.places.preferences()),
      preferences_(defaults_, parts_.profile.places.home()),
      tools_(std::make_shared<SystemTools>(parts_.profile)),
      sounds_(preferences_, shockwave_, *parts_.soundPlayer, *parts_.clock),
      icons_(*parts_.icons, ownersOf(parts_.profile)),
      show_(shockwave_, icons_),
      cleaner_(tools_->cleaner(parts_.profile), tools_, parts_.profile.scan.volumeTrashes),
      monitor_({
          .clock = *parts_.clock,
          .sensors = parts_.machine.sensors,
          .temperatures = parts_.machine.temperatures,
          .fans = parts_.machine.fans,
          .processes = parts_.machine.processes,
          .texts = parts_.profile.texts,
      }),
      state_(std::make_unique<AppState>(AppServices{
          .profile = parts_.profile,
          .tools = tools_,
          .clean = services(),
          .monitor = monitor_,
          .launchAtLogin = *parts_.launchAtLogin,
          .motion = motion_,
          .show = show_,
      })),
      mainWindow_(*state_) {}

Program::~Program() = default;

CleanServices Program::services() {
    return {
        .clock = *parts_.clock,
        .preferences = preferences_,
        .icons = icons_,
        .sounds = sounds_,
        .runner = cleaner_,
        .safetyGuard =
            [this](std::vector<std::filesystem::path> extraRoots) {
                return parts_.profile.safetyGuard(preferences_.values(), std::move(extraRoots));
            },
    };
}

}  // namespace tavrel
