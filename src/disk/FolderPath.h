#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// The way to the folder that is looked at, from the root of the disk; never empty. Below the home it leads
/// over the home, so that a person sees their own folders and not those above.
class FolderPath {
  public:
    using Path = std::filesystem::path;
    using Stack = std::vector<Path>;

    /// Begins in the home.
    FolderPath(Path root, Path home);

    [[nodiscard]] const Stack& stack() const { return stack_; }
    [[nodiscard]] const Path& current() const { return stack_.back(); }
    [[nodiscard]] bool isAtRoot() const { return stack_.size() == 1; }
    [[nodiscard]] bool canGoForward() const { return !ahead_.empty(); }

    /// Steps into a folder that lies in one of the stack; from elsewhere it is navigated to.
    void enter(const Path& folder);
    /// Whether there was a way back.
    bool goBack();
    /// Into the folder that was last left by going back, unless another way was taken since. Whether there is
    /// one.
    bool goForward();
    /// Whether `index` lies above the current folder.
    bool cutTo(std::size_t index);
    /// Whether `folder` is on this disk.
    bool navigate(const Path& folder);

    /// The stack that leads to `folder`; nothing when it is not on this disk.
    [[nodiscard]] std::optional<Stack> wayTo(const Path& folder) const;

  private:
    Path root_;
    Path home_;
    Stack stack_;
    Stack ahead_;  // the next one last
};

}  // namespace tavrel
