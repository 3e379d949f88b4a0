#pragma once

#include "models/clean/CleanServices.h"

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
    const SystemTools& tools;
    CleanServices clean;
    Monitor& monitor;
    LaunchAtLogin& launchAtLogin;
    MotionPause& motion;
    ShowState& show;
};

}  // namespace tavrel
