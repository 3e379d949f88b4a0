#pragma once

#include "cleaning/Removal.h"
#include "cleaning/SafetyGuard.h"
#include "cleaning/Trash.h"
#include "platform/linux/files/LinuxFolderAccess.h"
#include "support/Sandbox.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tavrel::testing {

/// A home to clean and, beside it, an outside that has to survive whatever happens in the home.
class RemovalSandbox {
  public:
    using Path = std::filesystem::path;

    RemovalSandbox();

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

/// Lets another program act at the very moment that matters.
class Interrupted : public LinuxFolderAccess {
  public:
    std::function<void(const std::string& name)> beforeOpening = [](const std::string&) {};
    std::function<void()> beforeClimbing = [] {};
    std::function<void()> beforeMoving = [] {};

    Outcome<FileHandle> openBeneath(int anchor, const std::vector<std::string>& components) const override {
        if (!components.empty()) beforeOpening(components.back());
        return LinuxFolderAccess::openBeneath(anchor, components);
    }
    Outcome<FileHandle> openAbove(int handle) const override {
        beforeClimbing();
        return LinuxFolderAccess::openAbove(handle);
    }
    std::error_code moveExclusively(int from, const std::string& fromName, int to,
                                    const std::string& toName) const override {
        beforeMoving();
        return LinuxFolderAccess::moveExclusively(from, fromName, to, toName);
    }
};

/// Runs an action the first time only.
inline std::function<void()> once(std::function<void()> act) {
    return [act = std::move(act), done = false]() mutable {
        if (!std::exchange(done, true)) act();
    };
}

enum class Layout { flat, freedesktop };
[[nodiscard]] std::unique_ptr<Trash> makeTrash(Layout layout, const FolderAccess& access,
                                               const std::filesystem::path& home);

}  // namespace tavrel::testing
