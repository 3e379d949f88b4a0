#pragma once

#include "models/clean/BackgroundCleaner.h"
#include "models/program/AppState.h"
#include "models/show/FakeIconSource.h"
#include "models/show/FileIcons.h"
#include "models/show/MotionPause.h"
#include "models/show/ShowState.h"
#include "models/show/Sounds.h"
#include "models/status/Monitor.h"
#include "platform/FolderAccess.h"
#include "sample/SampleMac.h"
#include "support/EventLoop.h"
#include "support/FakeLogin.h"
#include "support/FakeMachine.h"
#include "support/FakeSoundPlayer.h"
#include "support/ManualClock.h"
#include "support/Sandbox.h"

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tavrel::testing {

/// The state of the whole program over a small sample disk: real searches and real removals, in stepped time
/// and without a window.
class StateFixture {
  public:
    StateFixture() : mac(sandbox.folder("disk")), profile(withStick(mac.profile())) {}

    /// Searches to the end; whether it came there.
    [[nodiscard]] bool scan(CleanListModel& list) {
        list.scan();
        return waitUntil([&list] { return !list.isWorking(); }, clock);
    }
    /// Removes what is selected, with the whole show.
    [[nodiscard]] bool clean(CleanListModel& list) {
        list.clean();
        return waitUntil([&list] { return !list.isWorking(); }, clock);
    }
    [[nodiscard]] bool isTrashed(const std::string& name) const {
        return std::filesystem::exists(mac.at("~/.Trash/" + name));
    }
    const Sandbox sandbox;
    const sample::SampleMac mac;
    const Profile profile;
    UserDefaults defaults{profile.places.preferences()};
    Preferences preferences{defaults, profile.places.home()};
    ManualClock clock{now()};
    std::shared_ptr<SystemTools> tools = std::make_shared<SystemTools>(profile);
    FakeIconSource iconSource;
    FileIcons icons{iconSource, IconOwners::macos(profile.places.home())};
    MotionPause motion;
    Shockwave shockwave;
    ShowState show{shockwave, icons};
    FakeSoundPlayer player;
    Sounds sounds{preferences, shockwave, player, clock};
    FakeLogin login;
    BackgroundCleaner cleaner{{
                                  .access = systemFolderAccess(),
                                  .trash = tools->trash(),
                                  .administrator = tools->administrator(),
                                  .systemRoots = profile.scan.system.roots,
                                  .history = profile.places.history(),
                                  .now = [] { return now(); },
                              },
                              tools};
    Machine machine = FakeMachine::readers(std::make_shared<FakeMachine>());
    Monitor monitor{{clock, machine.sensors, machine.temperatures, machine.fans, machine.processes}};
    std::unique_ptr<AppState> state = std::make_unique<AppState>(AppServices{
        .profile = profile,
        .tools = tools,
        .clean = {.clock = clock,
                  .preferences = preferences,
                  .icons = icons,
                  .sounds = sounds,
                  .runner = cleaner,
                  .safetyGuard =
                      [this](std::vector<std::filesystem::path> extraRoots) {
                          return profile.safetyGuard(preferences.values(), std::move(extraRoots));
                      }},
        .monitor = monitor,
        .launchAtLogin = login,
        .motion = motion,
        .show = show,
    });

  private:
    /// A Mac with a stick that has a Trash of its own.
    [[nodiscard]] Profile withStick(Profile plain) const {
        plain.scan.volumeTrashes = [trash = mac.at("/Volumes/Stick/.Trashes/501")] {
            return std::vector{trash};
        };
        return plain;
    }
};

}  // namespace tavrel::testing
