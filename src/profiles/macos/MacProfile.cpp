#include "core/Text.h"
#include "platform/root/RootTools.h"
#include "profiles/CatalogRow.h"
#include "profiles/Profile.h"
#include "profiles/macos/MacTables.h"

namespace tavrel {

namespace {

using Path = std::filesystem::path;

SafetyGuard::Lists guardLists() {
    return {
        .neverRemove =
            {
                "",
                "Library",
                "Library/Caches",
                "Library/Logs",
                "Library/Application Support",
                "Library/Containers",
                "Library/Group Containers",
                "Library/Preferences",
                "Library/Developer",
                "Library/Developer/Xcode",
                "Library/Developer/Xcode/DerivedData",
                "Library/Developer/Xcode/Archives",
                "Library/Developer/CoreSimulator",
                "Desktop",
                "Documents",
                "Downloads",
                "Pictures",
                "Movies",
                "Music",
                "Public",
                "Applications",
                ".Trash",
                ".ssh",
                ".gnupg",
                ".config",
            },
        .neverInside =
            {
                "Library/Keychains",
                "Library/Mobile Documents",
                "Library/CloudStorage",
                "Library/Mail",
                "Library/Messages",
                "Library/Photos",
                "Library/Safari",
                "Library/Calendars",
                "Library/Contacts",
                "Library/Notes",
                "Library/Application Support/AddressBook",
                "Library/Application Support/com.apple.TCC",
                "Library/Group Containers/group.com.apple.notes",
                ".ssh",
                ".gnupg",
                "Pictures",
                "Movies",
                "Music",
            },
    };
}

std::vector<std::string_view> packages() {
    return {
        "app",        "appex",         "xpc",          "bundle",      "plugin",        "kext",
        "component",  "prefpane",      "saver",        "qlgenerator", "mdimporter",    "wdgt",
        "action",     "workflow",      "scptd",        "pkg",         "mpkg",          "sparsebundle",
        "dsym",       "docset",        "xcodeproj",    "xcworkspace", "xcarchive",     "xcdatamodeld",
        "playground", "photoslibrary", "musiclibrary", "tvlibrary",   "imovielibrary", "fcpbundle",
        "logicx",     "band",          "rtfd",         "pages",       "numbers",       "key",
        "theater",    "download",
    };
}

SpecialScanners::SystemPlaces systemPlaces(const Places& places) {
    const Path caches = places.resolve("/Library/Caches");
    const Path reports = places.resolve("/Library/Logs/DiagnosticReports");
    const Path logs = places.resolve("/private/var/log");
    return {
        .folders =
            {
                {.folder = caches,
                 .skippedPrefix = "com.apple.",
                 .minSize = 65536,
                 .note = Text::localized("System-wide cache")},
                {.folder = reports, .minAgeDays = 7, .note = Text::localized("System crash report")},
                {.folder = logs,
                 .extensions = {"gz", "bz2", "xz"},
                 .minAgeDays = 7,
                 .note = Text::localized("Rotated system log")},
            },
        .snapshotTool = RootTools::program(RootTool::deleteLocalSnapshot),
        .roots = {caches, reports, logs},
    };
}

JunkScanner::Tables scanTables(const Places& places) {
    return {
        .rules = Mac::rules(),
        .systemCachePrefix = "com.apple.",
        .webCaches = {{.folders = "Library/Application Support",
                       .skippedPrefix = "com.apple.",
                       .skipped = {std::begin(editorNames), std::end(editorNames)},
                       .caches = {std::begin(SpecialScanners::webCaches),
                                  std::end(SpecialScanners::webCaches)}}},
        .containers = {{.folder = "Library/Containers", .inner = "Data/Library/Caches"}},
        .system = systemPlaces(places),
        .versioned = {{.parentSuffix = "DeviceSupport",
                       .key = JunkScanner::Tables::Versioned::Key::firstWord,
                       .newestNote = Text::localized("Newest — keep it if your device runs this version"),
                       .olderNote = Text::localized("Older iOS version; Xcode re-copies it if ever needed")}},
    };
}

std::vector<ExplorerPlace> explorerPlaces() {
    // clang-format off
    return {
        ExplorerPlace{"/",             "Whole disk",   "internaldrive"},
        ExplorerPlace{"~",             "",             "house"},
        ExplorerPlace{"~/Library",     "Library",      "building.columns"},
        ExplorerPlace{"~/Downloads",   "Downloads",    "arrow.down.circle"},
        ExplorerPlace{"~/Documents",   "Documents",    "doc"},
        ExplorerPlace{"~/Developer",   "Developer",    "hammer"},
        ExplorerPlace{"/Applications", "Applications", "square.grid.2x2"},
    };
    // clang-format on
}

}  // namespace

Profile Profiles::macos(const Path& root, const Path& home) {
    const Places places(root, home,
                        {
                            .applicationSupport = "Library/Application Support",
                            .preferences = "Library/Preferences/com.quennith.tavrel.plist",
                            .trash = ".Trash",
                            .downloads = "Downloads",
                            .desktop = "Desktop",
                            .documents = "Documents",
                            .autostart = ".config/autostart",
                        });
    return {
        .family = Profile::Family::macos,
        .places = places,
        .scan = scanTables(places),
        .installers = {.extensions = {"dmg", "pkg", "mpkg", "xip", "iso"},
                       .packages = {"app", "framework", "bundle", "plugin", "kext", "photoslibrary"},
                       .applications = places.applications()},
        .projects = Mac::projects(),
        .guardLists = guardLists(),
        .fullDiskAccessProbes = {"Library/Application Support/com.apple.TCC/TCC.db",
                                 "Library/Containers/com.apple.stocks", "Library/Safari"},
        .packages = packages(),
        .trashLayout = Profile::TrashLayout::flat,
        .explorerPlaces = explorerPlaces(),
        .volumeFolders = {"/Volumes"},
        .texts = PlatformTexts{.noFan = "No fan on this Mac",
                               .fanUnavailable = "Fan control unavailable on this Mac",
                               .graphics = "Integrated GPU",
                               .noGraphics = "Integrated GPU",
                               .power = "Energy impact, as in Activity Monitor",
                               .processNotes = Mac::processNotes()},
    };
}

}  // namespace tavrel
