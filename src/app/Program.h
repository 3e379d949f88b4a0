#pragma once

#include "app/MainWindow.h"
#include "core/UserDefaults.h"
#include "engine/Machine.h"
#include "engine/SystemTools.h"
#include "models/clean/BackgroundCleaner.h"
#include "models/program/AppState.h"
#include "models/program/Preferences.h"
#include "models/show/FileIcons.h"
#include "models/show/MotionPause.h"
#include "models/show/ShowState.h"
#include "models/show/Sounds.h"
#include "models/status/Monitor.h"
#include "models/support/Clock.h"
#include "platform/LaunchAtLogin.h"
#include "platform/desktop/IconSource.h"
#include "platform/desktop/SoundPlayer.h"
#include "profiles/Profile.h"

#include <memory>

namespace tavrel {

/// Everything that lives as long as the program, in the order in which it is made: the system's tools, the
/// models over them, and the window's factory.
class Program {
  public:
    /// What a test or a demonstration may put in the system's place.
    struct Parts {
        Profile profile;
        std::unique_ptr<Clock> clock;
        std::unique_ptr<LaunchAtLogin> launchAtLogin;
        std::unique_ptr<SoundPlayer> soundPlayer;
        std::unique_ptr<IconSource> icons;
        Machine machine;
    };

    /// The parts of the running system. `start` says whether the login started this process.
    enum class Start { byUser, byLogin };
    [[nodiscard]] static Parts partsOf(Profile profile, Start start);

    explicit Program(Parts parts);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] AppState& state() { return *state_; }
    [[nodiscard]] Clock& clock() { return *parts_.clock; }
    [[nodiscard]] UserDefaults& defaults() { return defaults_; }
    [[nodiscard]] LaunchAtLogin& launchAtLogin() { return *parts_.launchAtLogin; }
    [[nodiscard]] MainWindow& mainWindow() { return mainWindow_; }
    /// What one more list of removable things would be made over.
    [[nodiscard]] CleanServices services();

  private:
    Parts parts_;
    UserDefaults defaults_;
    Preferences preferences_;
    std::shared_ptr<SystemTools> tools_;
    MotionPause motion_;
    Shockwave shockwave_;
    Sounds sounds_;
    FileIcons icons_;
    ShowState show_;
    BackgroundCleaner cleaner_;
    Monitor monitor_;
    std::unique_ptr<AppState> state_;
    MainWindow mainWindow_;
};

}  // namespace tavrel
