#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// The last vetting of every path that would be removed: a decision over a path, the file system's idea of
/// links and the values held here. It removes nothing and keeps no state, so any thread may ask it.
class SafetyGuard {
  public:
    using Path = std::filesystem::path;

    /// What a home folder of this kind of system holds dear; paths relative to the home. In those but
    /// `neverRemove` and `profileCaches` a part with a "*" stands for any name that it fits.
    struct Lists {
        std::vector<std::string> neverRemove;  // the folder itself stays, what is inside may go
        std::vector<std::string> neverInside;  // neither the folder nor anything in it
        /// Like `neverInside`, but for `profileCaches`: browsers keep caches between what is personal.
        std::vector<std::string> profiles;
        /// What may go directly below an entry of `profiles` or below one of its folders; relative paths.
        std::vector<std::string> profileCaches;
        std::vector<std::string> neverNamed;  // names of what stays wherever it lies in the home
    };

    /// The answer: allowed, or refused with a reason in the user's words.
    class Verdict {
      public:
        static Verdict allowed(Path root) { return Verdict({}, std::move(root)); }
        static Verdict refused(std::string_view reason) { return Verdict(std::string(reason), {}); }

        [[nodiscard]] bool isAllowed() const { return reason_.empty(); }
        /// Empty when allowed.
        [[nodiscard]] const std::string& reason() const { return reason_; }
        /// The admitted root that the path lies below: where a removal anchors. Empty when refused.
        [[nodiscard]] const Path& root() const { return root_; }

      private:
        Verdict(std::string reason, Path root) : reason_(std::move(reason)), root_(std::move(root)) {}
        std::string reason_;
        Path root_;
    };

    Path home;                                // resolved and standardised; always allowed as a root
    std::vector<std::string> protectedPaths;  // folders that the user barred; each may begin with a tilde
    std::vector<Path> extraRoots;             // admitted besides the home
    Lists lists;

    [[nodiscard]] Verdict check(const Path& url) const;

    /// The guard for what only root can remove: the same home and barred folders, other roots.
    [[nodiscard]] SafetyGuard withRoots(std::vector<Path> roots) const;

  private:
    [[nodiscard]] static bool hasSymlinkedAncestor(const Path& url, const Path& root);
    [[nodiscard]] bool isPersonal(std::string_view relative) const;
    [[nodiscard]] bool isBarred(std::string_view path) const;
};

}  // namespace tavrel
