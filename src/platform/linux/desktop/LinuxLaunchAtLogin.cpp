#include "platform/linux/desktop/LinuxLaunchAtLogin.h"

#include "core/Files.h"
#include "platform/linux/desktop/DesktopEntry.h"

#include <fmt/format.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

// Two ways in which desktops note that the user switched an entry off.
constexpr const char* hidden = "Hidden";
constexpr const char* enabled = "X-GNOME-Autostart-enabled";

}  // namespace

bool LinuxLaunchAtLogin::isEnabled() const {
    const auto entry = DesktopEntry::read(entry_);
    return entry && !entry->isTrue(hidden) && entry->value(enabled) != "false";
}

bool LinuxLaunchAtLogin::set(bool on) {
    if (on) return writeEntry();
    std::error_code error;
    fs::remove(entry_, error);
    return !error;
}

bool LinuxLaunchAtLogin::writeEntry() const {
    std::error_code error;
    fs::create_directories(entry_.parent_path(), error);
    if (error) return false;
    return !Files::writeAtomically(
        entry_, fmt::format("[Desktop Entry]\n"
                            "Type=Application\n"
                            "Name=Tavrel\n"
                            "Exec={} {}\n"
                            "{}=true\n",
                            DesktopEntry::commandWord(program_.native()), loginArgument, enabled));
}

}  // namespace tavrel
