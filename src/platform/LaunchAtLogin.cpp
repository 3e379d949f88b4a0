#include "platform/LaunchAtLogin.h"

#include "core/UserDefaults.h"

namespace tavrel {

void LaunchAtLogin::enableOnFirstLaunch(UserDefaults& defaults) {
    constexpr const char* done = "launchAtLoginDefaulted";
    // A file that cannot be read may say so already, and holds what the user barred: it stays as it is.
    if (defaults.state() == UserDefaults::State::damaged) return;
    if (defaults.value(done) == UserDefaults::Value(true)) return;
    // Without the note every launch would be the first, and undo the user's switch-off.
    if (!defaults.set(done, true)) set(true);
}

}  // namespace tavrel
