#include "cleaning/FreedesktopTrash.h"

#include "core/FileHandle.h"
#include "core/Paths.h"

#include <cctype>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include <fmt/format.h>

namespace tavrel {

namespace {

constexpr std::string_view infoExtension = ".trashinfo";
constexpr const char* contentsFolder = "files";
constexpr const char* notesFolder = "info";
constexpr const char* sharedFolder = ".Trash";  // on a volume, with a folder for each user

/// On a volume without a shared folder.
std::string ownFolder(uid_t user) {
    return fmt::format(".Trash-{}", user);
}

}  // namespace

std::string FreedesktopTrash::percentEncoded(std::string_view bytes) {
    constexpr std::string_view plain = "-_.!~*'()/";
    std::string encoded;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool kept =
            (byte < 0x80U && std::isalnum(byte) != 0) || plain.find(c) != std::string_view::npos;
        encoded += kept ? std::string(1, c) : fmt::format("%{:02X}", byte);
    }
    return encoded;
}

MovingTrash::Outcome<MovingTrash::OnVolume> FreedesktopTrash::openOnVolume(int top) const {
    if (auto shared = openShared(top)) {
        return OnVolume{.trash = std::move(*shared), .way = Path(sharedFolder) / std::to_string(user())};
    }
    const std::string name = ownFolder(user());
    return makeOwnFolders(top, {name}).map([&](FileHandle trash) {
        return OnVolume{.trash = std::move(trash), .way = name};
    });
}

MovingTrash::Outcome<FileHandle> FreedesktopTrash::openShared(int top) const {
    auto shared = access().openBeneath(top, {sharedFolder});
    if (!shared) return shared;
    // Without the sticky bit any user could put another folder in the place of ours.
    struct stat status {};
    if (::fstat(shared->get(), &status) != 0 || (status.st_mode & S_ISVTX) == 0) {
        return tl::unexpected(std::make_error_code(std::errc::operation_not_permitted));
    }
    return makeOwnFolders(shared->get(), {std::to_string(user())});
}

MovingTrash::Outcome<MovingTrash::Bin> FreedesktopTrash::openBin(FileHandle trash) const {
    auto files = makeFolders(trash.get(), {contentsFolder});
    if (!files) return tl::unexpected(files.error());
    auto info = makeFolders(trash.get(), {notesFolder});
    if (!info) return tl::unexpected(info.error());
    return Bin{.files = std::move(*files),
               .notes = std::move(*info),
               .contents = contentsFolder,
               .origin = {},
               .trash = {}};
}

std::error_code FreedesktopTrash::note(const Bin& bin, const std::string& name) const {
    const FileHandle file(::openat(bin.notes.get(), TrashNote::nameFor(name).c_str(),
                                   O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file) return lastError();
    const auto content = fmt::format("[Trash Info]\nPath={}\nDeletionDate={}\n", percentEncoded(bin.origin),
                                     noteDate(localTime(std::chrono::system_clock::now())));
    const auto failed = writeThrough(file.get(), content);
    if (failed) dropNote(bin.notes.get(), name);
    return failed;
}

void FreedesktopTrash::dropNote(int notes, const std::string& name) const {
    ::unlinkat(notes, TrashNote::nameFor(name).c_str(), 0);
}

std::optional<TrashNote> FreedesktopTrash::noteOn(int notes, const std::string& name) const {
    return TrashNote::read(notes, TrashNote::nameFor(name));
}

std::optional<std::string> FreedesktopTrash::notedName(const std::string& note) const {
    if (!note.ends_with(infoExtension)) return std::nullopt;
    return note.substr(0, note.size() - infoExtension.size());
}

std::size_t FreedesktopTrash::noteSuffix() const {
    return infoExtension.size();
}

void FreedesktopTrash::erased(const Path& path) {
    const Path whole = Paths::standardized(path);
    const auto way = wayTo(whole.parent_path());
    if (!way) return;
    const auto anchor = access().openAnchor(way->anchor);
    if (!anchor) return;
    const auto trash = access().openBeneath(anchor->get(), way->trash);
    if (!trash) return;
    const auto files = access().openBeneath(trash->get(), way->contents);
    const auto info = access().openBeneath(trash->get(), way->notes);
    const std::string name = Paths::name(whole);
    if (!files || !info || access().identify(files->get(), name)) return;
    ::unlinkat(info->get(), TrashNote::nameFor(name).c_str(), 0);
}

std::optional<MovingTrash::Way> FreedesktopTrash::wayTo(const Path& contents) const {
    if (contents.filename() != contentsFolder) return std::nullopt;
    const auto way = [](const Path& anchor, std::vector<std::string> trash) {
        return Way{.anchor = anchor,
                   .trash = std::move(trash),
                   .contents = {contentsFolder},
                   .notes = {notesFolder}};
    };
    const Path trash = contents.parent_path();
    if (trash == Paths::standardized(home() / folder())) {
        return way(home(), Paths::components(folder().native()));
    }
    const std::string name = Paths::name(trash);
    const Path above = trash.parent_path();
    if (name == ownFolder(user())) return way(above, {name});
    if (name == std::to_string(user()) && above.filename() == sharedFolder) {
        return way(above.parent_path(), {sharedFolder, name});
    }
    return std::nullopt;
}

}  // namespace tavrel
