#include "profiles/macos/MacTables.h"

namespace tavrel::Mac {

namespace {

// clang-format off
constexpr ProcessNote rows[] = {
    {"kernel_task",     "The macOS kernel. High CPU here usually means the Mac is throttling to stay cool."},
    {"WindowServer",    "Draws everything on screen. Busy with many windows, displays or animations."},
    {"mds",             "Spotlight's indexer. Busy after big file changes or a macOS update; it settles down."},
    {"mds_stores",      "Spotlight's index store. Same as mds — temporary after many file changes."},
    {"mdworker_shared", "Spotlight workers reading files to index them."},
    {"photoanalysisd",  "Photos analysing faces and scenes. Runs mostly while the Mac is idle."},
    {"backupd",         "Time Machine making a backup."},
    {"softwareupdated", "Checking for or downloading macOS updates."},
    {"bird",            "iCloud Drive syncing files."},
    {"cloudd",          "iCloud syncing data for apps."},
    {"coreaudiod",      "The system audio engine."},
    {"launchd",         "Starts and supervises every other process."},
    {"logd",            "Collects system logs."},
    {"trustd",          "Checks certificates and code signatures."},
    {"syspolicyd",      "Gatekeeper: checks apps before they open."},
    {"XprotectService", "Apple's built-in malware scanner."},
    {"corespotlightd",  "Indexes app content for Spotlight."},
    {"Finder",          "The Finder."},
    {"Dock",            "The Dock, Mission Control and Launchpad."},
    {"node",            "A Node.js program — often a dev server or an editor's language tooling."},
    {"Electron",        "An app built on Electron (a bundled Chromium)."},
};
// clang-format on

}  // namespace

ProcessNotes processNotes() {
    return rows;
}

}  // namespace tavrel::Mac
