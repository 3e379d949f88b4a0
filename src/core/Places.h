#pragma once

#include <filesystem>
#include <string_view>

namespace tavrel {

/// Every folder the logic speaks of, as one value built from a root and a home. The root is "/" in real
/// life, a temporary folder in tests and demos, the mount point when another machine's disk is examined.
class Places {
  public:
    using Path = std::filesystem::path;

    /// What the user's own folders are called below the home; relative paths.
    struct UserFolders {
        Path applicationSupport;  // the folder "Tavrel" in it holds the history
        Path preferences;         // the file with the settings
        Path trash;
        Path downloads;
        Path desktop;
        Path documents;
        Path autostart;  // login items
    };

    /// Both are resolved: symbolic links in them are followed here, once.
    Places(const Path& root, const Path& home, UserFolders folders);

    [[nodiscard]] const Path& root() const { return root_; }
    [[nodiscard]] const Path& home() const { return home_; }
    /// Whether the root is that of the running system, so that its commands and processes mean this disk.
    [[nodiscard]] bool isRunningSystem() const { return root_ == "/"; }

    /// "~/x" below the home, "/x" below the root.
    [[nodiscard]] Path resolve(std::string_view text) const;

    [[nodiscard]] Path applications() const { return resolve("/Applications"); }
    [[nodiscard]] Path history() const { return home_ / folders_.applicationSupport / "Tavrel/history.json"; }
    [[nodiscard]] Path preferences() const { return home_ / folders_.preferences; }
    [[nodiscard]] Path trash() const { return home_ / folders_.trash; }
    [[nodiscard]] Path downloads() const { return home_ / folders_.downloads; }
    [[nodiscard]] Path desktop() const { return home_ / folders_.desktop; }
    [[nodiscard]] Path documents() const { return home_ / folders_.documents; }
    [[nodiscard]] Path autostart() const { return home_ / folders_.autostart; }

  private:
    Path root_;
    Path home_;
    UserFolders folders_;
};

}  // namespace tavrel
