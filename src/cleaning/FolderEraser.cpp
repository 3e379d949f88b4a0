#include "cleaning/FolderEraser.h"

#include "core/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include <fmt/format.h>

namespace tavrel {

namespace {

constexpr std::size_t maxOpenFolders = 32;
/// Some file systems skip names while others are being deleted, and programs add files meanwhile. Both come
/// to an end within a few readings; a folder that still fills is given up.
constexpr int maxPasses = 32;
constexpr std::size_t maxShownColumns = 120;

std::error_code removeName(int folder, const std::string& name, int flags) {
    return ::unlinkat(folder, name.c_str(), flags) == 0 ? std::error_code() : lastError();
}

/// Whether the entry is gone or became another kind of thing: the next reading of the folder tells.
bool isForNextPass(std::error_code error) {
    constexpr std::array kinds = {
        std::errc::no_such_file_or_directory,
        std::errc::not_a_directory,
        std::errc::is_a_directory,
        std::errc::too_many_symbolic_link_levels,
    };
    return std::any_of(kinds.begin(), kinds.end(), [&](std::errc kind) { return error == kind; });
}

bool isNotEmpty(std::error_code error) {
    return error == std::errc::directory_not_empty || error == std::errc::file_exists;
}

/// Lets the owner list and change the folder, as some caches are written to be read only.
std::error_code admitOwner(const FolderAccess& access, int folder) {
    struct stat status {};
    if (::fstat(folder, &status) != 0) return lastError();
    return access.setMode(folder, (status.st_mode & 07777U) | S_IRWXU);
}

/// Runs `act` on the folder `level`, and once more with its owner admitted if permission was lacking.
template <typename Level, typename Act>
std::error_code withOwnerAdmitted(const FolderAccess& access, Level& level, const Act& act) {
    const std::error_code failed = act();
    if (failed != std::errc::permission_denied || std::exchange(level.ownerAdmitted, true)) return failed;
    return admitOwner(access, level.handle()) ? failed : act();
}

}  // namespace

Removal::Outcome FolderEraser::erase(FileHandle folder) {
    auto failed = push(located_.name, std::move(folder));
    while (!failed && !levels_.empty()) failed = step();
    if (failed) return tl::unexpected(refusal(failed));
    return {};
}

std::error_code FolderEraser::step() {
    Level& here = levels_.back();
    errno = 0;
    if (const dirent* entry = ::readdir(here.stream.get())) return removeEntry(*entry);
    if (errno == 0) return leave();
    const auto failed = lastError();
    const bool namesOnly = failed == std::errc::bad_file_descriptor;
    return namesOnly && !std::exchange(here.ownerAdmitted, true) ? makeReadable(here) : failed;
}

std::error_code FolderEraser::makeReadable(Level& level) const {
    if (admitOwner(access_, level.handle())) return std::make_error_code(std::errc::permission_denied);
    auto readable = access_.openBeneath(level.handle(), {});
    return readable ? openStream(level, std::move(*readable)) : readable.error();
}

std::error_code FolderEraser::removeEntry(const dirent& entry) {
    entry_ = entry.d_name;
    if (entry_ == "." || entry_ == "..") return {};
    const auto failed = isFolder(entry) ? enter(entry_) : unlinkEntry();
    return isForNextPass(failed) ? std::error_code() : failed;
}

bool FolderEraser::isFolder(const dirent& entry) const {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    const auto identity = access_.identify(levels_.back().handle(), entry.d_name);
    return identity && identity->isFolder();
}

std::error_code FolderEraser::unlinkEntry() {
    Level& here = levels_.back();
    return withOwnerAdmitted(access_, here, [&] { return removeName(here.handle(), entry_, 0); });
}

std::error_code FolderEraser::enter(const std::string& name) {
    Level& here = levels_.back();
    FileHandle opened;
    const auto failed = withOwnerAdmitted(access_, here, [&]() -> std::error_code {
        auto folder = access_.openBeneath(here.handle(), {name});
        if (!folder) return folder.error();
        opened = std::move(*folder);
        return {};
    });
    return failed ? failed : push(name, std::move(opened));
}

std::error_code FolderEraser::push(const std::string& name, FileHandle folder) {
    const auto identity = access_.identify(folder.get());
    if (!identity) return identity.error();
    if (!identity->sameMount(located_.identity)) return std::make_error_code(std::errc::cross_device_link);

    Level level{.name = name, .identity = *identity};
    if (const auto failed = openStream(level, std::move(folder))) return failed;
    levels_.push_back(std::move(level));
    if (levels_.size() > maxOpenFolders) levels_[levels_.size() - 1 - maxOpenFolders].stream.reset();
    return {};
}

std::error_code FolderEraser::openStream(Level& level, FileHandle folder) {
    level.stream.reset(::fdopendir(folder.get()));
    if (!level.stream) return lastError();
    static_cast<void>(folder.release());  // the stream owns it now
    return {};
}

std::error_code FolderEraser::leave() {
    entry_.clear();
    if (const auto failed = reopenAbove()) return failed;
    auto failed = levels_.size() == 1 ? removeItem() : removeFolder();
    if (isNotEmpty(failed) && levels_.back().passes < maxPasses) {
        ++levels_.back().passes;
        ::rewinddir(levels_.back().stream.get());
        return {};
    }
    if (failed && !isForNextPass(failed)) return failed;
    levels_.pop_back();
    return {};
}

std::error_code FolderEraser::reopenAbove() {
    if (levels_.size() == 1) return {};
    Level& above = levels_[levels_.size() - 2];
    if (above.stream) return {};
    auto folder = access_.openAbove(levels_.back().handle());
    if (!folder) return folder.error();
    const auto found = access_.identify(folder->get());
    if (!found) return found.error();
    if (!found->sameThing(above.identity) || !found->sameMount(above.identity)) return Removal::changed;
    return openStream(above, std::move(*folder));
}

std::error_code FolderEraser::removeFolder() {
    Level& above = levels_[levels_.size() - 2];
    const std::string& name = levels_.back().name;
    return withOwnerAdmitted(access_, above, [&] { return removeName(above.handle(), name, AT_REMOVEDIR); });
}

std::error_code FolderEraser::removeItem() const {
    const auto found = access_.identify(located_.parent.get(), located_.name);
    if (!found) return found.error();
    if (!found->sameThing(located_.identity)) return Removal::changed;
    return removeName(located_.parent.get(), located_.name, AT_REMOVEDIR);
}

Removal::Refusal FolderEraser::refusal(std::error_code error) const {
    auto words = Removal::refusal(error);
    const auto where = Text::elided(Text::escapedForDisplay(whereItStopped()), maxShownColumns);
    if (!where.empty()) words.reason += ": " + where;
    return words;
}

std::string FolderEraser::whereItStopped() const {
    std::string path;
    for (std::size_t i = 1; i < levels_.size(); ++i) path += levels_[i].name + "/";
    return path + entry_;
}

}  // namespace tavrel
