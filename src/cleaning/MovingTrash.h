#pragma once

#include "cleaning/Trash.h"

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <system_error>
#include <vector>

namespace tavrel {

/// What the layouts of a Trash have in common: which Trash a thing goes to, folders made and opened by
/// handle, one exclusive move, and its undoing when another thing was swapped in. A layout says which folders
/// there are and what is noted beside an entry.
class MovingTrash : public Trash {
  public:
    [[nodiscard]] Removal::Outcome trash(const Removal::Target& target) final;
    [[nodiscard]] std::filesystem::path home() const final { return home_; }

  protected:
    using Path = std::filesystem::path;
    template <typename T>
    using Outcome = FolderAccess::Outcome<T>;

    /// One Trash, opened for one thing.
    struct Bin {
        FileHandle files;
        FileHandle notes;    // empty in a layout without notes
        std::string origin;  // where the thing was, as the notes name it
        FileIdentity trash;  // the folder with all of it
    };

    /// `folder` is that of the home Trash, relative to the home. `access` is borrowed.
    MovingTrash(const FolderAccess& access, Path home, Path folder, uid_t user);

    /// The Trash of this user on another volume, by the handle of its top folder.
    [[nodiscard]] virtual Outcome<FileHandle> openOnVolume(int top) const = 0;
    /// What lies inside a Trash, made where it is missing.
    [[nodiscard]] virtual Outcome<Bin> openBin(FileHandle trash) const = 0;
    /// Takes `name` in the notes; EEXIST when it is taken.
    [[nodiscard]] virtual std::error_code note(const Bin& bin, const std::string& name) const = 0;
    virtual void dropNote(const Bin& bin, const std::string& name) const = 0;
    /// How many bytes longer than the entry's name a name in the notes is.
    [[nodiscard]] virtual std::size_t noteSuffix() const = 0;

    /// Opens the folder that `names` lead to, making those that are missing for their owner alone.
    [[nodiscard]] Outcome<FileHandle> makeFolders(int at, const std::vector<std::string>& names) const;
    /// The same where others can write above: EPERM when the last folder is not this user's.
    [[nodiscard]] Outcome<FileHandle> makeOwnFolders(int at, const std::vector<std::string>& names) const;

    [[nodiscard]] const FolderAccess& access() const { return access_; }
    [[nodiscard]] const Path& folder() const { return folder_; }
    [[nodiscard]] uid_t user() const { return user_; }

  private:
    /// The mounted file system that a thing lies on.
    struct Volume {
        FileHandle top;
        std::string path;  // of the thing, from the top
    };

    [[nodiscard]] Outcome<Bin> binFor(const Removal::Target& target, const Removal::Located& located) const;
    [[nodiscard]] Outcome<Volume> volumeOf(const Removal::Target& target,
                                           const Removal::Located& located) const;
    /// Whether the thing is the folder `trash` or lies in it at any depth.
    [[nodiscard]] bool liesIn(const FileIdentity& trash, const Removal::Located& located) const;
    [[nodiscard]] Removal::Outcome moveInto(const Bin& bin, const Removal::Located& located) const;
    [[nodiscard]] std::error_code move(const Removal::Located& located, int folder,
                                       const std::string& name) const;
    [[nodiscard]] Removal::Outcome verifyArrival(const Bin& bin, const std::string& name,
                                                 const Removal::Located& located) const;
    [[nodiscard]] std::size_t roomForName(const Bin& bin) const;

    const FolderAccess& access_;
    Path home_;
    Path folder_;
    uid_t user_;
};

}  // namespace tavrel
