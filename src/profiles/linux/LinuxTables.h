#pragma once

#include "cleaning/CleanRule.h"
#include "cleaning/InstallerFinder.h"
#include "cleaning/ProjectPurger.h"
#include "cleaning/SafetyGuard.h"
#include "cleaning/SpecialScanners.h"
#include "core/Places.h"
#include "monitoring/ProcessNotes.h"
#include "profiles/linux/UserDirs.h"

namespace tavrel::Linux {

/// Where junk collects and how to treat it, in the order of scanning: the special places first, the catch-all
/// folders last. The folder is relative to the home.
[[nodiscard]] std::vector<CleanRule> rules(const std::filesystem::path& downloadsFolder);

/// Where applications keep the caches of their browser engine, browsers in sandboxes included.
[[nodiscard]] std::vector<SpecialScanners::WebCachePlaces> webCachePlaces();

/// What AI tools leave, beside what they leave on every system; a stricter view of some of that.
[[nodiscard]] std::vector<SpecialScanners::AiFolder> aiFolders();

/// What packages, images and archives with tools are called here.
[[nodiscard]] InstallerFinder::Tables installers(const Places& places);

/// What a Linux home holds dear. Every folder that holds something personal stays as well.
[[nodiscard]] SafetyGuard::Lists guardLists(const UserDirs& dirs, const std::filesystem::path& trashFolder);

/// Rotated logs, crash dumps and what the system's own tools tidy up. Commands only on the running system: on
/// the disk of another machine they would act on this one.
[[nodiscard]] SpecialScanners::SystemPlaces systemPlaces(const Places& places);

/// The folders of deleted files on the volumes mounted in `mounts` (the text of /proc/self/mounts) that
/// belong to `user`; no folder that is reached through a link, and none on a remote or FUSE mount, which may
/// not answer.
[[nodiscard]] SpecialScanners::VolumeTrashes volumeTrashes(std::string_view mounts, unsigned user,
                                                           const std::filesystem::path& homeTrash);

/// What software projects leave that can be made again, and what may be the only copy of something.
[[nodiscard]] ProjectPurger::Tables projects();

/// By the names that the kernel keeps, of which some are cut short.
[[nodiscard]] ProcessNotes processNotes();

}  // namespace tavrel::Linux
