#pragma once

#include "cleaning/SafetyGuard.h"
#include "platform/FolderAccess.h"

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include <tl/expected.hpp>

namespace tavrel {

/// The act of removal. It holds what the guard promised even when the tree changes meanwhile: everything
/// happens below the handle of an admitted root, no link is followed, no other mount is entered, and what
/// lies there must still be the thing that was vetted.
namespace Removal {

/// Why something was not removed, in the user's words.
struct Refusal {
    std::string reason;
};
using Outcome = tl::expected<void, Refusal>;

/// A vetted thing: the root it was admitted under, the way down from there, and what it was when it was
/// vetted.
struct Target {
    std::filesystem::path root;
    std::vector<std::string> components;  // at least one; the last is the thing itself
    FileIdentity seen;

    [[nodiscard]] std::filesystem::path path() const;
};

/// The folder that holds a target, opened, with the target found in it unchanged.
struct Located {
    FileHandle parent;
    std::string name;
    FileIdentity identity;
};

/// What stands at `path` at this moment, a link counting as itself.
[[nodiscard]] FolderAccess::Outcome<FileIdentity> identify(const FolderAccess& access,
                                                           const std::filesystem::path& path);
/// Whether the error is that nothing stands there any more.
[[nodiscard]] bool isGone(std::error_code error);

/// The target for a path that the guard has just allowed. `seen` was taken before the guard was asked.
[[nodiscard]] Target target(const std::filesystem::path& path, const SafetyGuard::Verdict& verdict,
                            const FileIdentity& seen);

/// Opens the way down to the target and compares what is there with what was seen.
[[nodiscard]] tl::expected<Located, Refusal> locate(const FolderAccess& access, const Target& target);

/// The located folder itself, opened. Refused when it was swapped since, or when something is mounted in it.
[[nodiscard]] tl::expected<FileHandle, Refusal> openLocated(const FolderAccess& access,
                                                            const Located& located);

/// Deletes the target and everything in it. When it fails part of a folder may be gone, never anything else.
[[nodiscard]] Outcome erase(const FolderAccess& access, const Target& target);

/// ESTALE: device, inode or type of the target are not those recorded when it was vetted.
inline const std::error_code changed(ESTALE, std::generic_category());

/// The words for an error.
[[nodiscard]] Refusal refusal(std::error_code error);

}  // namespace Removal
}  // namespace tavrel
