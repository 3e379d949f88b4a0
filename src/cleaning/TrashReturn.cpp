// The way back out of a Trash.

#include "cleaning/MovingTrash.h"
#include "core/Paths.h"
#include "core/Text.h"

#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tavrel {

namespace {

tl::unexpected<Removal::Refusal> refused(Text::English why) {
    return tl::unexpected(Removal::Refusal{Text::localized(why)});
}

tl::unexpected<Removal::Refusal> notThere() {
    return refused("It is not in the Trash any more");
}

/// Why the place that a thing came from does not take it back.
tl::unexpected<Removal::Refusal> noWayBack(std::error_code error) {
    if (error == std::errc::file_exists) return refused("Something else stands in its place now");
    if (error == std::errc::not_a_directory) return refused("A file stands where its folder was");
    if (error == std::errc::cross_device_link) return refused("Another disk is mounted where it was");
    return tl::unexpected(Removal::refusal(error));
}

/// Whether `path` is absolute and written in the one form that names nothing twice. A text may hold a NUL,
/// at which the system would end it.
bool isPlain(const std::filesystem::path& path) {
    return path.is_absolute() && path.native().find('\0') == std::string::npos &&
           Paths::standardized(path).native() == path.native();
}

/// The names in the folder behind a handle; none where it cannot be listed.
std::vector<std::string> namesIn(int folder) {
    FileHandle again(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(again ? ::fdopendir(again.get()) : nullptr, ::closedir);
    if (!listing) return {};
    static_cast<void>(again.release());  // the listing's now
    std::vector<std::string> names;
    while (const dirent* const entry = ::readdir(listing.get())) names.emplace_back(entry->d_name);
    return names;
}

}  // namespace

bool MovingTrash::isHome(const Way& way) const {
    return way.anchor == home_ && way.trash == Paths::components(folder_.native());
}

MovingTrash::Outcome<FileHandle> MovingTrash::openOwn(int anchor, const Way& way) const {
    const tl::unexpected forbidden(std::make_error_code(std::errc::operation_not_permitted));
    const auto above = access_.openAbove(anchor);
    const bool isTop = !above && (above.error() == std::errc::cross_device_link ||
                                  above.error() == std::errc::no_such_file_or_directory);
    if (!isTop) return forbidden;

    struct stat status {};
    if (way.trash.size() > 1) {
        const auto shared = access_.openBeneath(anchor, {way.trash.begin(), way.trash.end() - 1});
        if (!shared) return tl::unexpected(shared.error());
        const bool told = ::fstat(shared->get(), &status) == 0;
        const bool open = (status.st_mode & (S_IWGRP | S_IWOTH)) != 0 && (status.st_mode & S_ISVTX) == 0;
        if (!told || open) return forbidden;
    }
    auto trash = access_.openBeneath(anchor, way.trash);
    if (!trash) return trash;
    if (::fstat(trash->get(), &status) != 0 || status.st_uid != user_) return forbidden;
    return trash;
}

Trash::Expected<MovingTrash::Opened> MovingTrash::open(const Path& contents) const {
    const auto failed = [](std::error_code error) -> tl::unexpected<Removal::Refusal> {
        if (Removal::isGone(error)) return notThere();
        return tl::unexpected(unusable(error));
    };
    auto way = isPlain(contents) ? wayTo(contents) : std::nullopt;
    if (!way) return refused("It was put in no Trash of yours");
    auto anchor = access_.openAnchor(way->anchor);
    if (!anchor) return failed(anchor.error());
    const auto trash =
        isHome(*way) ? access_.openBeneath(anchor->get(), way->trash) : openOwn(anchor->get(), *way);
    if (!trash) return failed(trash.error());
    auto files = access_.openBeneath(trash->get(), way->contents);
    if (!files) return failed(files.error());
    FileHandle notes;
    if (!way->notes.empty()) {
        auto opened = access_.openBeneath(trash->get(), way->notes);
        if (!opened) return failed(opened.error());
        notes = std::move(*opened);
    }
    return Opened{.way = std::move(*way),
                  .contents = contents,
                  .anchor = std::move(*anchor),
                  .files = std::move(*files),
                  .notes = std::move(notes)};
}

Trash::Expected<Trash::Entry> MovingTrash::entryIn(const Opened& opened, const std::string& name) const {
    if (!access_.identify(opened.files.get(), name)) return notThere();
    Entry entry{.place = opened.contents / name, .original = {}, .moved = {}};
    if (!opened.notes) return entry;

    const auto note = noteOn(opened.notes.get(), name);
    if (!note) return notThere();
    // Relative paths count from the folder that holds the Trash, on a volume from its top.
    Path holder = opened.way.anchor;
    if (isHome(opened.way)) holder = (holder / folder_).parent_path();
    entry.original = holder / note->path;
    entry.moved = note->moved;
    if (!isPlain(entry.original)) return notThere();
    return entry;
}

Trash::Expected<Trash::Entry> MovingTrash::entry(const Path& place) const {
    if (!isPlain(place)) return refused("It was put in no Trash of yours");
    const auto opened = open(place.parent_path());
    if (!opened) return tl::unexpected(opened.error());
    return entryIn(*opened, Paths::name(place));
}

std::optional<std::vector<Trash::Entry>> MovingTrash::noted(const Path& contents) const {
    const auto opened = open(contents);
    std::vector<Entry> entries;
    if (!opened) return entries;
    if (!opened->notes) return std::nullopt;
    for (const auto& note : namesIn(opened->notes.get())) {
        const auto name = notedName(note);
        if (!name) continue;
        if (auto entry = entryIn(*opened, *name)) entries.push_back(std::move(*entry));
    }
    return entries;
}

Trash::Expected<std::vector<std::string>> MovingTrash::wayBack(const Opened& opened,
                                                               const Path& original) const {
    const auto& anchor = opened.way.anchor.native();
    const bool below =
        isPlain(original) && original != opened.way.anchor && Paths::isInside(original.native(), anchor);
    if (!below) {
        return isHome(opened.way) ? refused("It was outside your home folder")
                                  : refused("It was on another disk than this Trash");
    }
    Path trash = opened.way.anchor;
    for (const auto& name : opened.way.trash) trash /= name;
    if (Paths::isInside(original.native(), trash.native())) return refused("It was in the Trash already");
    return Paths::components(std::string_view(original.native()).substr(anchor.size()));
}

Removal::Outcome MovingTrash::putBack(const Entry& entry, Act act) const {
    if (!isPlain(entry.place)) return refused("It was put in no Trash of yours");
    const auto opened = open(entry.place.parent_path());
    if (!opened) return tl::unexpected(opened.error());
    const auto name = Paths::name(entry.place);
    const auto found = entryIn(*opened, name);
    if (!found) return tl::unexpected(found.error());
    if (opened->notes && found->original != entry.original) return notThere();
    auto way = wayBack(*opened, entry.original);
    if (!way) return tl::unexpected(way.error());

    auto holder = access_.openBeneath(opened->files.get(), {});
    const auto seen = access_.identify(opened->files.get(), name);
    if (!holder || !seen) return notThere();
    const std::string last = std::move(way->back());
    way->pop_back();
    auto folder = access_.openBeneath(opened->anchor.get(), *way);
    const bool missing = !folder && folder.error() == std::errc::no_such_file_or_directory;
    if (missing && act == Act::look) return {};
    if (missing) folder = makeFolders(opened->anchor.get(), *way);
    if (!folder) return noWayBack(folder.error());
    if (access_.identify(folder->get(), last)) {
        return noWayBack(std::make_error_code(std::errc::file_exists));
    }
    if (act == Act::look) return {};
    const Removal::Located located{.parent = std::move(*holder), .name = name, .identity = *seen};
    return moveBack(*opened, located, folder->get(), last);
}

Removal::Outcome MovingTrash::moveBack(const Opened& opened, const Removal::Located& entry, int folder,
                                       const std::string& name) const {
    if (const auto failed = move(entry, folder, name)) return noWayBack(failed);
    const auto arrived = access_.identify(folder, name);
    if (!arrived || !arrived->sameThing(entry.identity)) {
        auto words = Removal::refusal(Removal::changed);
        static_cast<void>(access_.moveExclusively(folder, name, opened.files.get(), entry.name));
        return tl::unexpected(words);
    }
    dropNote(opened.notes.get(), entry.name);
    return {};
}

}  // namespace tavrel
