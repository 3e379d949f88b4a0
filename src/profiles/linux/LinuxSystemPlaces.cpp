#include "core/Files.h"
#include "core/Paths.h"
#include "core/Text.h"
#include "platform/root/RootFolders.h"
#include "platform/root/RootTools.h"
#include "profiles/linux/LinuxTables.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <sstream>

namespace tavrel::Linux {

using RootTools::program;
using SpecialScanners::SystemCommand;
using SpecialScanners::SystemFolder;
using Text::localized;
using Path = std::filesystem::path;

namespace {

constexpr int logAgeDays = 7;
constexpr int journalAgeDays = 14;

/// Folders below the system's logs where programs rotate their own.
constexpr std::string_view logFolders[] = {
    "",       "/apt",        "/cups",  "/samba", "/nginx",   "/apache2", "/unattended-upgrades",
    "/mysql", "/postgresql", "/exim4", "/gdm3",  "/lightdm", "/libvirt", "/dist-upgrade",
};

/// Endings that log rotation gives; what is still written to has none of them.
const std::vector<std::string> rotatedExtensions = {"gz", "bz2", "xz", "zst", "old", "1", "2",
                                                    "3",  "4",   "5",  "6",   "7",   "8", "9"};

std::vector<SystemFolder> folders(const Path& logs, const Path& dumps, const Path& crashes) {
    std::vector<SystemFolder> rows;
    for (const std::string_view below : logFolders) {
        rows.push_back({.folder = Path(logs.native() + std::string(below)),
                        .takes = SystemFolder::Takes::files,
                        .extensions = rotatedExtensions,
                        .minAgeDays = logAgeDays,
                        .note = localized("Rotated system log")});
    }
    rows.push_back({.folder = dumps,
                    .takes = SystemFolder::Takes::files,
                    .risk = Risk::review,
                    .note = localized("Memory of a crashed program; needed only to find its fault")});
    rows.push_back({.folder = crashes,
                    .takes = SystemFolder::Takes::files,
                    .risk = Risk::review,
                    .note = localized("System crash report")});
    return rows;
}

std::vector<SystemCommand> commands(const Places& places) {
    const auto at = [&](std::string_view path) { return places.resolve(path); };
    return {
        {.tool = program(RootTool::vacuumJournal),
         .run = {RootTool::vacuumJournal, {std::to_string(journalAgeDays)}},
         .empties = {{.folder = at("/var/log/journal"), .nameHolds = "@", .minAgeDays = journalAgeDays}},
         .risk = Risk::safe,
         .note = localized("Journal entries older than 14 days")},
        {.tool = program(RootTool::cleanAptCache),
         .run = {RootTool::cleanAptCache},
         .empties = {{.folder = at("/var/cache/apt/archives"), .nameHolds = ".deb"},
                     {.folder = at("/var/cache/apt"), .nameHolds = "pkgcache.bin"}},
         .risk = Risk::safe,
         .note = localized("Downloaded packages; fetched again when needed")},
        {.tool = program(RootTool::cleanDnfCache),
         .run = {RootTool::cleanDnfCache},
         .empties = {{.folder = at("/var/cache/dnf"), .nameHolds = ".rpm"},
                     {.folder = at("/var/cache/libdnf5"), .nameHolds = ".rpm"}},
         .risk = Risk::safe,
         .note = localized("Downloaded packages; fetched again when needed")},
        {.tool = program(RootTool::thinPacmanCache),
         .run = {RootTool::thinPacmanCache, {"2"}},
         .risk = Risk::review,
         .note = localized("Cached packages but the two newest versions of each; size known only to pacman")},
    };
}

}  // namespace

SpecialScanners::SystemPlaces systemPlaces(const Places& places) {
    const Path logs = places.resolve("/var/log");
    const Path dumps = places.resolve("/var/lib/systemd/coredump");
    const Path crashes = places.resolve("/var/crash");
    SpecialScanners::SystemPlaces system{.folders = folders(logs, dumps, crashes)};
    for (const char* folder : linuxRootFolders) system.roots.push_back(places.resolve(folder));
    if (places.isRunningSystem()) {
        system.commands = commands(places);
        system.packages = {.tool = program(RootTool::removeSnapRevision),
                           .folder = places.resolve("/var/lib/snapd/snaps")};
        const Path userData = places.trash().parent_path();
        system.runtimes = {.tool = program(RootTool::uninstallRuntime),
                           .installation = places.resolve("/var/lib/flatpak"),
                           .others = {userData / "flatpak"}};
    }
    return system;
}

namespace {

/// Whether a file system of this type asks another machine or process, whose answer may never come.
bool isRemote(const std::string& type) {
    static const std::set<std::string> types = {"nfs", "nfs4", "cifs", "smb3", "autofs", "9p", "afs", "fuse"};
    return types.contains(type) || type.starts_with("fuse.");
}

/// A mount point as the kernel writes it: blanks, tabs, newlines and backslashes as three octal digits.
Path decoded(std::string_view text) {
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned code = 0;
        const auto digits = text.substr(std::min(i + 1, text.size()), 3);
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, 8);
        if (text[i] == '\\' && error == std::errc() && end == digits.data() + 3) {
            path += static_cast<char>(code);
            i += 3;
        } else {
            path += text[i];
        }
    }
    return path;
}

}  // namespace

SpecialScanners::VolumeTrashes volumeTrashes(std::string_view mounts, unsigned user, const Path& homeTrash) {
    SpecialScanners::VolumeTrashes trashes;
    std::istringstream lines{std::string(mounts)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string device, point, type;
        if (!(fields >> device >> point >> type) || isRemote(type)) continue;
        const Path top = decoded(point);
        const std::string id = std::to_string(user);
        for (const Path& trash : {top / ".Trash" / id, top / (".Trash-" + id)}) {
            const bool real = Files::isFolder(trash.parent_path()) && Files::isFolder(trash) &&
                              Files::isFolder(trash / "files");
            if (real && trash != homeTrash) trashes.push_back(trash / "files");
        }
    }
    return trashes;
}

}  // namespace tavrel::Linux
