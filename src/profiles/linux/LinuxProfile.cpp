#include "core/Files.h"
#include "core/Paths.h"
#include "core/Text.h"
#include "profiles/CatalogRow.h"
#include "profiles/Profile.h"
#include "profiles/linux/LinuxTables.h"

#include <unistd.h>

namespace tavrel {

namespace {

using Path = std::filesystem::path;

/// `moved` relative to the home where the environment names a folder inside it, else `usual`.
Path belowHome(const Path& moved, const Path& home, const char* usual) {
    const Path folder = Paths::standardized(moved);
    if (!moved.is_absolute() || folder == home || !Paths::isInside(folder.native(), home.native()))
        return usual;
    return folder.lexically_relative(home);
}

Linux::UserDirs userDirs(const Path& home, const Path& config) {
    return Linux::parseUserDirs(Files::read(home / config / "user-dirs.dirs").value_or(""), home);
}

JunkScanner::Tables scanTables(const Places& places, const Path& downloads) {
    JunkScanner::Tables tables{
        .rules = Linux::rules(downloads),
        .manner = {.age = Manner::Age::newestInside, .remarks = Manner::Remarks::addToNote},
        .webCaches = Linux::webCachePlaces(),
        .containers = {{.folder = ".var/app",
                        .inner = "cache",
                        .reviewed = {"org.gnome.Evolution", "org.keepassxc.KeePassXC", "org.rclone.Rclone"}},
                       {.folder = "snap", .inner = "common/.cache", .reviewed = {"keepassxc"}}},
        .system = Linux::systemPlaces(places),
        .homeTrash = places.trash() / "files",
        .trashReviewDays = 30,
        .versioned = {{.parentSuffix = "JetBrains",
                       .key = JunkScanner::Tables::Versioned::Key::letters,
                       .newestNote =
                           Text::localized("Newest version of this IDE; rebuilt slowly on next open"),
                       .olderNote = Text::localized(
                           "Older version of an IDE that has a newer one; its local history goes too"),
                       .olderRisk = Risk::review}},
    };
    if (places.isRunningSystem()) {
        tables.userRuntimes = {.tool = "/usr/bin/flatpak",
                               .installation = places.trash().parent_path() / "flatpak",
                               .others = {places.resolve("/var/lib/flatpak")},
                               .owner = SpecialScanners::SharedRuntimes::Owner::user};
        tables.volumeTrashes = [homeTrash = places.trash()] {
            return Linux::volumeTrashes(Files::read("/proc/self/mounts").value_or(""), ::getuid(), homeTrash);
        };
    }
    return tables;
}

}  // namespace

namespace {

/// The user's own folders stand under the names that they have on the disk.
std::vector<ExplorerPlace> explorerPlaces(const Linux::UserDirs& dirs) {
    const auto own = [&dirs](const char* name) { return "~/" + dirs.at(name).native(); };
    // clang-format off
    return {
        ExplorerPlace{"/",              "Whole disk", "internaldrive"},
        ExplorerPlace{"~",              "",           "house"},
        ExplorerPlace{own("DOWNLOAD"),  "",           "arrow.down.circle"},
        ExplorerPlace{own("DOCUMENTS"), "",           "doc"},
        ExplorerPlace{own("DESKTOP"),   "",           "square.grid.2x2"},
        ExplorerPlace{own("PICTURES"),  "",           "photo.fill"},
        ExplorerPlace{own("MUSIC"),     "",           "music.note"},
        ExplorerPlace{own("VIDEOS"),    "",           "film.fill"},
    };
    // clang-format on
}

}  // namespace

Profile Profiles::linux(const Path& root, const Path& home, const UserEnvironment& environment) {
    const Path resolvedHome = Paths::resolved(home);
    const Path config = belowHome(environment.configHome, resolvedHome, ".config");
    const Path data = belowHome(environment.dataHome, resolvedHome, ".local/share");
    const Linux::UserDirs dirs = userDirs(resolvedHome, config);
    const Places places(root, resolvedHome,
                        {
                            .applicationSupport = data,
                            .preferences = config / "Tavrel/preferences.plist",
                            .trash = data / "Trash",
                            .downloads = dirs.at("DOWNLOAD"),
                            .desktop = dirs.at("DESKTOP"),
                            .documents = dirs.at("DOCUMENTS"),
                            .autostart = config / "autostart",
                        });
    return {
        .family = Profile::Family::linux,
        .places = places,
        .scan = scanTables(places, dirs.at("DOWNLOAD")),
        .installers = Linux::installers(places),
        .aiFolders = Linux::aiFolders(),
        .projects = Linux::projects(),
        .guardLists = Linux::guardLists(dirs, data / "Trash"),
        .trashLayout = Profile::TrashLayout::freedesktop,
        .explorerPlaces = explorerPlaces(dirs),
        .volumeFolders = {"/media", "/media/*", "/run/media/*", "/mnt"},
        .texts = PlatformTexts{.noFan = "No fan on this computer",
                               .fanUnavailable = "Fan control unavailable on this computer",
                               .graphics = "Graphics",
                               .noGraphics = "No graphics figures",
                               .power = "Share of processor time",
                               .processNotes = Linux::processNotes()},
    };
}

}  // namespace tavrel
