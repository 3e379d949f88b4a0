#pragma once

#include <filesystem>
#include <functional>
#include <vector>

namespace tavrel {

class CleanRunner;
class Clock;
class FileIcons;
class Preferences;
class SafetyGuard;
class Sounds;

/// What every clean on screen shares. The references outlive the models.
struct CleanServices {
    Clock& clock;
    Preferences& preferences;
    FileIcons& icons;
    Sounds& sounds;
    CleanRunner& runner;
    /// A guard of this moment that admits `extraRoots` besides the home.
    std::function<SafetyGuard(std::vector<std::filesystem::path> extraRoots)> safetyGuard;
};

}  // namespace tavrel
