#include "profiles/linux/LinuxTables.h"

namespace tavrel::Linux {

namespace {

constexpr auto start = ProcessNote::Match::start;

// clang-format off
constexpr ProcessNote rows[] = {
    // The system's own services. Where the name is longer than the 15 bytes that the kernel keeps, its start.
    {"systemd",         "Starts and supervises every other process."},
    {"systemd-journal", "Collects system logs.",                                                              start},
    {"systemd-resolve", "Looks up the addresses of internet names.",                                          start},
    {"systemd-udevd",   "Sets up devices as they are plugged in. Busy for a moment at each one."},
    {"(udev-worker)",   "Sets up devices as they are plugged in. Busy for a moment at each one."},
    {"systemd-logind",  "Keeps track of who is logged in, and puts the computer to sleep."},
    {"systemd-oomd",    "Ends programs when memory runs out, before the whole computer stalls."},
    {"dbus-",           "Carries the messages between programs and services.",                                start},
    {"polkitd",         "Decides who may do what needs administrator rights."},
    {"NetworkManager",  "Looks after network connections."},
    {"wpa_supplicant",  "Signs in to Wi-Fi networks."},
    {"udisksd",         "Mounts disks and watches over their health."},
    {"upowerd",         "Reads the batteries, and puts the computer to sleep before they are empty."},
    {"cups",            "The printing system.",                                                               start},
    {"fwupd",           "Checks for firmware updates.",                                                       start},
    {"updatedb",        "Lists every file for the locate command. Runs once a day, for some minutes.",        start},

    // Software and containers.
    {"packagekitd",     "Checks for or installs software updates."},
    {"apt",             "Checks for or installs software updates."},
    {"apt-get",         "Checks for or installs software updates."},
    {"unattended-upgr", "Installs security updates by itself.",                                               start},
    {"dpkg",            "Installs or removes packages.",                                                      start},
    {"snapd",           "Installs and updates snaps."},
    {"flatpak",         "Installs Flatpak apps, or lets one out of its sandbox for a moment.",                start},
    {"dockerd",         "Runs Docker containers."},
    {"containerd",      "Keeps containers running.",                                                          start},

    // The desktop.
    {"Xorg",            "Draws everything on screen. Busy with many windows, displays or animations."},
    {"Xwayland",        "Lets older apps draw on a Wayland desktop."},
    {"gnome-shell",     "The GNOME desktop. Draws windows, the top bar and the overview."},
    {"plasmashell",     "The Plasma desktop: panels, widgets and wallpaper."},
    {"kwin_",           "Draws the windows of Plasma. Busy with many windows, displays or animations.",       start},
    {"pipewire",        "The system audio engine.",                                                           start},
    {"wireplumber",     "Decides which app plays through which speaker."},
    {"pulseaudio",      "The system audio engine."},
    {"tracker-",        "GNOME's file indexer. Busy after big file changes; it settles down.",                start},
    {"localsearch",     "GNOME's file indexer. Busy after big file changes; it settles down.",                start},
    {"baloo_file",      "Plasma's file indexer. Busy after big file changes; it settles down.",               start},
    {"gvfsd",           "Lets apps reach network folders, phones and the Trash.",                             start},
    {"xdg-desktop-por", "Opens files and shares the screen for apps in a sandbox.",                           start},

    // Apps.
    {"node",            "A Node.js program — often a dev server or an editor's language tooling."},
    {"electron",        "An app built on Electron (a bundled Chromium)."},
    {"Web Content",     "A tab of the browser."},
    {"Isolated Web Co", "A tab of the browser, kept apart from the others.",                                  start},
    {"WebExtensions",   "The extensions of the browser."},
    {"WebKitWebProces", "A web page inside an app.",                                                          start},

    // Threads of the kernel: one for each processor, disk or device.
    {"kworker/",        "The kernel doing work for devices and file systems.",                                start},
    {"ksoftirqd/",      "The kernel handling network traffic and timers.",                                    start},
    {"irq/",            "The kernel taking in what a device reports.",                                        start},
    {"kswapd",          "The kernel freeing memory. Busy when memory is nearly full.",                        start},
    {"kcompactd",       "The kernel tidying memory to make room for large blocks.",                           start},
    {"khugepaged",      "The kernel tidying memory to make room for large blocks."},
};
// clang-format on

}  // namespace

ProcessNotes processNotes() {
    return rows;
}

}  // namespace tavrel::Linux
