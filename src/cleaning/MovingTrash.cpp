#include "cleaning/MovingTrash.h"

#include "cleaning/TrashNames.h"
#include "core/Paths.h"
#include "core/Text.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include <fmt/format.h>

namespace tavrel {

namespace {

/// Nobody has that many things of one name in a Trash; the search for a free name has to end.
constexpr unsigned maxAttempts = 100'000;
constexpr long longestName = 255;  // bytes, on every file system that keeps names as bytes

tl::unexpected<std::error_code> failure(std::errc error) {
    return tl::unexpected(std::make_error_code(error));
}

tl::unexpected<Removal::Refusal> refused(std::error_code error) {
    return tl::unexpected(Removal::refusal(error));
}

}  // namespace

MovingTrash::MovingTrash(const FolderAccess& access, Path home, Path folder, uid_t user)
    : access_(access), home_(std::move(home)), folder_(std::move(folder)), user_(user) {}

Removal::Refusal MovingTrash::unusable(std::error_code error) {
    return {Text::localized("The Trash cannot be used") + ": " + Removal::refusal(error).reason};
}

Trash::Expected<Trash::Trashed> MovingTrash::trash(const Removal::Target& target) {
    const auto located = Removal::locate(access_, target);
    if (!located) return tl::unexpected(located.error());
    if (located->identity.isFolder()) {
        if (const auto opened = Removal::openLocated(access_, *located); !opened) {
            return tl::unexpected(opened.error());
        }
    }
    const auto bin = binFor(target, *located);
    if (!bin) return tl::unexpected(unusable(bin.error()));
    // Moved once more a thing would take a new note, which names the Trash as the place to go back to.
    if (liesIn(bin->trash, *located)) {
        return tl::unexpected(Removal::Refusal{Text::localized("Already in the Trash")});
    }
    return moveInto(*bin, *located);
}

MovingTrash::Outcome<MovingTrash::Bin> MovingTrash::binFor(const Removal::Target& target,
                                                           const Removal::Located& located) const {
    const auto opened = [&](FileHandle trash, const Path& path, std::string origin) -> Outcome<Bin> {
        const auto identity = access_.identify(trash.get());
        if (!identity) return tl::unexpected(identity.error());
        auto bin = openBin(std::move(trash));
        if (!bin) return bin;
        bin->contents = Paths::standardized(path / bin->contents);
        bin->origin = std::move(origin);
        bin->trash = *identity;
        return bin;
    };

    const auto anchor = access_.openAnchor(home_);
    if (!anchor) return tl::unexpected(anchor.error());
    const auto atHome = access_.identify(anchor->get());
    if (!atHome) return tl::unexpected(atHome.error());
    if (atHome->sameMount(located.identity)) {
        auto trash = makeFolders(anchor->get(), Paths::components(folder_.native()));
        if (!trash) return tl::unexpected(trash.error());
        return opened(std::move(*trash), home_ / folder_, target.path().native());
    }
    const auto volume = volumeOf(target, located);
    if (!volume) return tl::unexpected(volume.error());
    auto found = openOnVolume(volume->top.get());
    if (!found) return tl::unexpected(found.error());
    return opened(std::move(found->trash), volume->topPath / found->way, volume->path);
}

MovingTrash::Outcome<MovingTrash::Volume> MovingTrash::volumeOf(const Removal::Target& target,
                                                                const Removal::Located& located) const {
    auto names = Paths::components(Paths::resolved(target.root).native());
    names.insert(names.end(), target.components.begin(), target.components.end());

    std::size_t depth = 1;  // of the thing below the folder in hand
    auto top = access_.openBeneath(located.parent.get(), {});
    if (!top) return tl::unexpected(top.error());
    for (;; ++depth) {
        auto above = access_.openAbove(top->get());
        if (above) {
            top = std::move(above);
            continue;
        }
        const bool reached = above.error() == std::errc::cross_device_link ||
                             above.error() == std::errc::no_such_file_or_directory;
        if (!reached) return tl::unexpected(above.error());
        break;
    }
    if (depth > names.size()) return tl::unexpected(Removal::changed);
    const auto below = names.end() - static_cast<std::ptrdiff_t>(depth);
    return Volume{.top = std::move(*top),
                  .topPath = fmt::format("/{}", fmt::join(names.begin(), below, "/")),
                  .path = fmt::format("{}", fmt::join(below, names.end(), "/"))};
}

bool MovingTrash::liesIn(const FileIdentity& trash, const Removal::Located& located) const {
    if (located.identity.sameThing(trash)) return true;
    // By handle: names on the way may have changed since it was opened.
    for (auto here = access_.openBeneath(located.parent.get(), {}); here;
         here = access_.openAbove(here->get())) {
        const auto identity = access_.identify(here->get());
        if (identity && identity->sameThing(trash)) return true;
    }
    return false;
}

Trash::Expected<Trash::Trashed> MovingTrash::moveInto(const Bin& bin, const Removal::Located& located) const {
    const auto room = roomForName(bin);
    for (unsigned number = 1; number <= maxAttempts; ++number) {
        const auto name = TrashNames::numbered(located.name, number, room);
        if (const auto failed = note(bin, name)) {
            if (failed == std::errc::file_exists) continue;
            return tl::unexpected(unusable(failed));
        }
        const auto failed = move(located, bin.files.get(), name);
        if (!failed) {
            return verifyArrival(bin, name, located).map([&] { return Trashed{bin.contents / name}; });
        }
        dropNote(bin.notes.get(), name);
        if (failed == std::errc::cross_device_link) {
            return tl::unexpected(Removal::Refusal{Text::localized("The Trash lies on another disk")});
        }
        if (failed != std::errc::file_exists) return refused(failed);
    }
    return tl::unexpected(unusable(std::make_error_code(std::errc::file_exists)));
}

std::error_code MovingTrash::move(const Removal::Located& located, int folder,
                                  const std::string& name) const {
    const auto tryOnce = [&] {
        return access_.moveExclusively(located.parent.get(), located.name, folder, name);
    };
    const auto failed = tryOnce();
    if (failed != std::errc::permission_denied || !located.identity.isFolder()) return failed;

    // A folder notes which folder holds it, so it has to be writable to change places.
    const auto opened = Removal::openLocated(access_, located);
    struct stat status {};
    if (!opened || ::fstat(opened->get(), &status) != 0) return failed;
    const mode_t mode = status.st_mode & 07777U;
    if ((mode & S_IWUSR) != 0 || access_.setMode(opened->get(), mode | S_IWUSR)) return failed;
    const auto result = tryOnce();
    static_cast<void>(access_.setMode(opened->get(), mode));
    return result;
}

Removal::Outcome MovingTrash::verifyArrival(const Bin& bin, const std::string& name,
                                            const Removal::Located& located) const {
    const auto arrived = access_.identify(bin.files.get(), name);
    if (arrived && arrived->sameThing(located.identity)) return {};

    auto words = Removal::refusal(Removal::changed);
    if (access_.moveExclusively(bin.files.get(), name, located.parent.get(), located.name)) {
        words.reason += fmt::format(fmt::runtime(Text::localized("; it is now in the Trash as “{}”")),
                                    Text::escapedForDisplay(name));
    } else {
        dropNote(bin.notes.get(), name);
    }
    return tl::unexpected(words);
}

MovingTrash::Outcome<FileHandle> MovingTrash::makeFolders(int at,
                                                          const std::vector<std::string>& names) const {
    auto here = access_.openBeneath(at, {});
    for (const auto& name : names) {
        if (!here) break;
        const bool made = ::mkdirat(here->get(), name.c_str(), S_IRWXU) == 0;
        const auto failed = std::error_code(made ? 0 : errno, std::generic_category());
        auto next = access_.openBeneath(here->get(), {name});
        // Where the folder exists its own failure tells more than that of making it.
        const bool missing = !next && next.error() == std::errc::no_such_file_or_directory;
        if (missing && failed) return tl::unexpected(failed);
        here = std::move(next);
    }
    return here;
}

MovingTrash::Outcome<FileHandle> MovingTrash::makeOwnFolders(int at,
                                                             const std::vector<std::string>& names) const {
    auto opened = makeFolders(at, names);
    if (!opened) return opened;
    struct stat status {};
    if (::fstat(opened->get(), &status) != 0 || status.st_uid != user_) {
        return failure(std::errc::operation_not_permitted);
    }
    return opened;
}

std::size_t MovingTrash::roomForName(const Bin& bin) const {
    const long told = ::fpathconf(bin.files.get(), _PC_NAME_MAX);
    const long longest = told > 0 ? std::min(told, longestName) : longestName;
    return static_cast<std::size_t>(longest) - noteSuffix();
}

}  // namespace tavrel
