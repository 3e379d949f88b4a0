#pragma once

#include "models/clean/CleanServices.h"

#include <memory>

namespace tavrel {

class LaunchAtLogin;
class Monitor;
class MotionPause;
struct Profile;
class ShowState;
class SystemTools;

/// What the state of the program is made over. Everything outlives it.
struct AppServices {
    const Profile& profile;
    std::shared_ptr<const SystemTools> tools;  // abandoned scans keep them
    CleanServices clean;
    Monitor& monitor;
    LaunchAtLogin& launchAtLogin;
    MotionPause& motion;
    ShowState& show;
};

}  // namespace tavrel
