#pragma once

#include "cleaning/Trash.h"
#include "cleaning/TrashNote.h"

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <system_error>
#include <vector>

namespace tavrel {

/// What the layouts of a Trash have in common: which Trash a thing goes to, folders made and opened by
/// handle, one exclusive move there and one back, and its undoing when another thing was swapped in. A layout
/// says which folders there are and what is noted beside an entry.
class MovingTrash : public Trash {
  public:
    [[nodiscard]] Expected<Trashed> trash(const Removal::Target& target) final;
    [[nodiscard]] Expected<Entry> entry(const Path& place) const final;
    [[nodiscard]] std::optional<std::vector<Entry>> noted(const Path& contents) const final;
    [[nodiscard]] Removal::Outcome putBack(const Entry& entry, Act act) const final;
    [[nodiscard]] std::filesystem::path home() const final { return home_; }

  protected:
    template <typename T>
    using Outcome = FolderAccess::Outcome<T>;

    /// One Trash, opened for one thing.
    struct Bin {
        FileHandle files;
        FileHandle notes;    // empty in a layout without notes
        Path contents;       // where `files` is; first as seen from the Trash
        std::string origin;  // where the thing was, as the notes name it
        FileIdentity trash;  // the folder with all of it
    };

    /// The Trash on another volume.
    struct OnVolume {
        FileHandle trash;
        Path way;  // from the top of the volume
    };

    /// The folders of a Trash, derived from the path of its contents.
    struct Way {
        Path anchor;  // the home or the top of a volume: things from below it can go back there
        std::vector<std::string> trash;     // from the anchor
        std::vector<std::string> contents;  // from the Trash
        std::vector<std::string> notes;     // from the Trash; none in a layout without notes
    };

    /// `folder` is that of the home Trash, relative to the home. `access` is borrowed.
    MovingTrash(const FolderAccess& access, Path home, Path folder, uid_t user);

    /// The Trash of this user on another volume, by the handle of its top folder.
    [[nodiscard]] virtual Outcome<OnVolume> openOnVolume(int top) const = 0;
    /// What lies inside a Trash, made where it is missing.
    [[nodiscard]] virtual Outcome<Bin> openBin(FileHandle trash) const = 0;
    /// Takes `name` in the notes; EEXIST when it is taken.
    [[nodiscard]] virtual std::error_code note(const Bin& bin, const std::string& name) const = 0;
    virtual void dropNote(int notes, const std::string& name) const = 0;
    [[nodiscard]] virtual std::optional<TrashNote> noteOn(int notes, const std::string& name) const = 0;
    /// The entry that a name in the notes stands for; nothing when it stands for none.
    [[nodiscard]] virtual std::optional<std::string> notedName(const std::string& note) const = 0;
    /// Nothing for a path that is not that of a Trash of this user. Nothing is asked of the disk.
    [[nodiscard]] virtual std::optional<Way> wayTo(const Path& contents) const = 0;
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
        Path topPath;
        std::string path;  // of the thing, from the top
    };

    /// A Trash opened to look at what is in it; nothing is made for that.
    struct Opened {
        Way way;
        Path contents;
        FileHandle anchor;
        FileHandle files;
        FileHandle notes;  // empty in a layout without notes
    };

    [[nodiscard]] Outcome<Bin> binFor(const Removal::Target& target, const Removal::Located& located) const;
    [[nodiscard]] Outcome<Volume> volumeOf(const Removal::Target& target,
                                           const Removal::Located& located) const;
    /// Whether the thing is the folder `trash` or lies in it at any depth.
    [[nodiscard]] bool liesIn(const FileIdentity& trash, const Removal::Located& located) const;
    [[nodiscard]] Expected<Trashed> moveInto(const Bin& bin, const Removal::Located& located) const;
    /// Also moves a folder that only its owner's rights keep in place.
    [[nodiscard]] std::error_code move(const Removal::Located& located, int folder,
                                       const std::string& name) const;
    [[nodiscard]] Removal::Outcome verifyArrival(const Bin& bin, const std::string& name,
                                                 const Removal::Located& located) const;
    [[nodiscard]] std::size_t roomForName(const Bin& bin) const;
    [[nodiscard]] static Removal::Refusal unusable(std::error_code error);

    [[nodiscard]] Expected<Opened> open(const Path& contents) const;
    [[nodiscard]] bool isHome(const Way& way) const;
    /// The folder of a Trash on a volume: EPERM unless the anchor is the top of that volume and nobody else
    /// can have put the folder there.
    [[nodiscard]] Outcome<FileHandle> openOwn(int anchor, const Way& way) const;
    [[nodiscard]] Expected<Entry> entryIn(const Opened& opened, const std::string& name) const;
    /// The way below the anchor to where the thing was; refused for what lies elsewhere or in the Trash.
    [[nodiscard]] Expected<std::vector<std::string>> wayBack(const Opened& opened,
                                                             const Path& original) const;
    [[nodiscard]] Removal::Outcome moveBack(const Opened& opened, const Removal::Located& entry, int folder,
                                            const std::string& name) const;

    const FolderAccess& access_;
    Path home_;
    Path folder_;
    uid_t user_;
};

}  // namespace tavrel
