#pragma once

#include "cleaning/Removal.h"

#include <cstddef>
#include <dirent.h>
#include <memory>
#include <string>
#include <vector>

namespace tavrel {

/// Deletes one folder with everything in it, deepest first and by handle: no link is followed, no other mount
/// or device is entered. However deep the tree, only so many folders are open at once; an ancestor that was
/// closed is come back to through ".." and must be the very folder that was left.
class FolderEraser {
  public:
    /// Both are borrowed for the life of the eraser.
    FolderEraser(const FolderAccess& access, const Removal::Located& located)
        : access_(access), located_(located) {}

    /// `folder` is the located one, opened. Stops at the first thing that cannot be removed and names it.
    [[nodiscard]] Removal::Outcome erase(FileHandle folder);

  private:
    struct CloseStream {
        void operator()(DIR* stream) const { ::closedir(stream); }
    };
    using Stream = std::unique_ptr<DIR, CloseStream>;

    /// A folder on the way from the item down to where the work is.
    struct Level {
        std::string name;  // in the level above
        FileIdentity identity;
        Stream stream;               // empty while the folder is closed
        int passes = 1;              // how often it has been read
        bool ownerAdmitted = false;  // whether its permissions were widened

        [[nodiscard]] int handle() const { return ::dirfd(stream.get()); }
    };

    [[nodiscard]] std::error_code step();
    [[nodiscard]] std::error_code removeEntry(const dirent& entry);
    [[nodiscard]] std::error_code unlinkEntry();

    [[nodiscard]] std::error_code enter(const std::string& name);
    [[nodiscard]] std::error_code push(const std::string& name, FileHandle folder);
    [[nodiscard]] static std::error_code openStream(Level& level, FileHandle folder);
    [[nodiscard]] std::error_code makeReadable(Level& level) const;

    [[nodiscard]] std::error_code leave();
    [[nodiscard]] std::error_code reopenAbove();
    [[nodiscard]] std::error_code removeFolder();
    [[nodiscard]] std::error_code removeItem() const;

    [[nodiscard]] bool isFolder(const dirent& entry) const;
    [[nodiscard]] Removal::Refusal refusal(std::error_code error) const;
    [[nodiscard]] std::string whereItStopped() const;

    const FolderAccess& access_;
    const Removal::Located& located_;
    std::vector<Level> levels_;
    std::string entry_;  // what is being removed in the deepest level
};

}  // namespace tavrel
