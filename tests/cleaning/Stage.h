#pragma once

#include "cleaning/Removal.h"
#include "cleaning/SafetyGuard.h"
#include "cleaning/Trash.h"
#include "platform/FolderAccess.h"
#include "support/Sandbox.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tavrel::testing {

/// A home to clean and, beside it, an outside that has to survive whatever happens in the home.
class Stage {
  public:
    using Path = std::filesystem::path;

    Stage();

    [[nodiscard]] Path home() const { return sandbox.path("home"); }
    [[nodiscard]] Path outside() const { return sandbox.path("outside"); }
    [[nodiscard]] SafetyGuard guard() const;

    /// The thing at `path` as it is seen and allowed now. Throws when the guard refuses it.
    [[nodiscard]] Removal::Target target(const FolderAccess& access, const Path& path) const;

    Sandbox sandbox;
};

/// Every name below `folder` with what it is and holds, to compare byte for byte.
[[nodiscard]] std::map<std::string, std::string> snapshot(const std::filesystem::path& folder);

/// The reason of a refusal; empty for a success.
template <typename Outcome>
[[nodiscard]] std::string reason(const Outcome& outcome) {
    return outcome ? "" : outcome.error().reason;
}

/// A way of reaching things by handle, by name.
struct NamedAccess {
    const char* name;
    const FolderAccess& access;
    bool numbersMounts;  // whether it tells mounts of one device apart
};
/// The system's own, its stand-in on an old kernel, and the portable one.
[[nodiscard]] const std::vector<NamedAccess>& accesses();

enum class Layout { flat, freedesktop };
[[nodiscard]] std::unique_ptr<Trash> makeTrash(Layout layout, const FolderAccess& access,
                                               const std::filesystem::path& home);

}  // namespace tavrel::testing
