#include "cleaning/Removal.h"

#include "cleaning/FolderEraser.h"
#include "core/Paths.h"
#include "core/RandomBytes.h"
#include "core/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

#include <fmt/format.h>

namespace tavrel::Removal {

namespace {

/// The folder of a path too long for one call, opened a stretch at a time.
FolderAccess::Outcome<FileHandle> openLongFolder(std::string_view folder) {
    FileHandle here;
    while (!folder.empty()) {
        auto length = folder.size();
        if (length >= PATH_MAX) length = folder.rfind('/', PATH_MAX - 1);
        if (length == 0 || length == std::string_view::npos) {
            return tl::unexpected(std::make_error_code(std::errc::filename_too_long));
        }
        const std::string stretch(folder.substr(0, length));
        here = FileHandle(
            ::openat(here ? here.get() : AT_FDCWD, stretch.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!here) return tl::unexpected(std::error_code(errno, std::generic_category()));
        folder.remove_prefix(std::min(folder.size(), length + 1));
    }
    return here;
}

/// Puts back what turned out to be another thing, or says where it is.
Refusal putBack(const FolderAccess& access, const Located& located, const std::string& hidden, Refusal why) {
    const int folder = located.parent.get();
    if (access.moveExclusively(folder, hidden, folder, located.name)) {
        why.reason += fmt::format(fmt::runtime(Text::localized("; it is now named “{}”")), hidden);
    }
    return why;
}

/// Under a name that nobody else knows a file can be told apart and deleted with nothing swapped in between.
Outcome eraseFile(const FolderAccess& access, const Located& located) {
    const int folder = located.parent.get();
    const std::string hidden = privateName();
    if (const auto failed = access.moveExclusively(folder, located.name, folder, hidden)) {
        return tl::unexpected(refusal(failed));
    }
    const auto moved = access.identify(folder, hidden);
    if (!moved) return tl::unexpected(putBack(access, located, hidden, refusal(moved.error())));
    if (!moved->sameThing(located.identity))
        return tl::unexpected(putBack(access, located, hidden, refusal(changed)));
    if (::unlinkat(folder, hidden.c_str(), 0) == 0) return {};
    const auto failed = std::error_code(errno, std::generic_category());
    return tl::unexpected(putBack(access, located, hidden, refusal(failed)));
}

}  // namespace

std::filesystem::path Target::path() const {
    std::string text = root.native();
    for (const auto& component : components) text = Paths::joined(std::move(text), component);
    return text;
}

FolderAccess::Outcome<FileIdentity> identify(const FolderAccess& access, const std::filesystem::path& path) {
    const std::string& text = path.native();
    const auto slash = text.rfind('/');
    if (text.size() < PATH_MAX || slash == std::string::npos) return access.identify(AT_FDCWD, text);
    const auto folder = openLongFolder(std::string_view(text).substr(0, slash));
    if (!folder) return tl::unexpected(folder.error());
    return access.identify(folder->get(), text.substr(slash + 1));
}

bool isGone(std::error_code error) {
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

Target target(const std::filesystem::path& path, const SafetyGuard::Verdict& verdict,
              const FileIdentity& seen) {
    const auto whole = Paths::standardized(path);
    const auto root = Paths::standardized(verdict.root());
    Target made{.root = root, .components = {}, .seen = seen};
    if (verdict.isAllowed() && Paths::isInside(whole.native(), root.native())) {
        made.components = Paths::components(std::string_view(whole.native()).substr(root.native().size()));
    }
    return made;
}

tl::expected<Located, Refusal> locate(const FolderAccess& access, const Target& target) {
    const auto refused = [](std::error_code error) {
        // On the way a mount lies above the thing, not inside it.
        return tl::unexpected(error == std::errc::cross_device_link
                                  ? Refusal{Text::localized("It lies on another disk than your home")}
                                  : refusal(error));
    };
    if (target.components.empty()) return refused(std::make_error_code(std::errc::invalid_argument));

    const auto anchor = access.openAnchor(target.root);
    if (!anchor) return refused(anchor.error());
    const std::vector<std::string> way(target.components.begin(), target.components.end() - 1);
    auto parent = access.openBeneath(anchor->get(), way);
    if (!parent) return refused(parent.error());

    const auto& name = target.components.back();
    const auto holder = access.identify(parent->get());
    const auto found = access.identify(parent->get(), name);
    if (!holder) return refused(holder.error());
    if (!found) return refused(found.error());
    if (found->mount != holder->mount) return refused(std::make_error_code(std::errc::cross_device_link));
    if (!found->sameThing(target.seen)) return tl::unexpected(refusal(changed));
    return Located{.parent = std::move(*parent), .name = name, .identity = *found};
}

tl::expected<FileHandle, Refusal> openLocated(const FolderAccess& access, const Located& located) {
    auto folder = access.openBeneath(located.parent.get(), {located.name});
    if (!folder) return tl::unexpected(refusal(folder.error()));
    const auto opened = access.identify(folder->get());
    if (!opened) return tl::unexpected(refusal(opened.error()));
    if (!opened->sameThing(located.identity)) return tl::unexpected(refusal(changed));
    if (!opened->sameMount(located.identity) || access.holdsMount(folder->get())) {
        return tl::unexpected(refusal(std::make_error_code(std::errc::cross_device_link)));
    }
    return std::move(*folder);
}

Outcome erase(const FolderAccess& access, const Target& target) {
    const auto located = locate(access, target);
    if (!located) return tl::unexpected(located.error());
    if (!located->identity.isFolder()) return eraseFile(access, *located);
    auto folder = openLocated(access, *located);
    if (!folder) return tl::unexpected(folder.error());
    return FolderEraser(access, *located).erase(std::move(*folder));
}

Refusal refusal(std::error_code error) {
    struct Words {
        std::errc error;
        Text::English text;
    };
    constexpr std::array words = {
        Words{std::errc::too_many_symbolic_link_levels, "Reached through a symbolic link"},
        Words{std::errc::cross_device_link, "A disk is mounted inside this folder"},
        Words{std::errc::device_or_resource_busy, "A disk is mounted inside this folder"},
        Words{std::errc::directory_not_empty, "Files keep being added to this folder"},
        Words{std::errc::file_exists, "Files keep being added to this folder"},
        Words{std::errc::not_supported, "This system does not distinguish mounted disks"},
    };
    if (error == changed) return {Text::localized("Changed since it was checked")};
    const auto known =
        std::find_if(words.begin(), words.end(), [&](const Words& row) { return error == row.error; });
    return {known == words.end() ? error.message() : Text::localized(known->text)};
}

}  // namespace tavrel::Removal
