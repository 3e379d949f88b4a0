#pragma once

#include "cleaning/MovingTrash.h"

#include <string>
#include <string_view>

namespace tavrel {

/// The Trash that Linux desktops share: "files" holds the things, "info" a note on each of where it was and
/// when it was deleted. See the freedesktop.org Trash specification 1.0.
class FreedesktopTrash final : public MovingTrash {
  public:
    /// `folder` is relative to `home`; `user` is whose Trash it is. `access` is borrowed.
    FreedesktopTrash(const FolderAccess& access, Path home, Path folder, uid_t user)
        : MovingTrash(access, std::move(home), std::move(folder), user) {}

    void erased(const Path& path) override;
    [[nodiscard]] Path contents() const override { return home() / folder() / "files"; }

    /// `bytes` as the key "Path" holds them: every byte that RFC 2396 does not call unreserved as "%XX", the
    /// slashes as they are.
    [[nodiscard]] static std::string percentEncoded(std::string_view bytes);

  private:
    [[nodiscard]] Outcome<OnVolume> openOnVolume(int top) const override;
    [[nodiscard]] Outcome<FileHandle> openShared(int top) const;
    [[nodiscard]] Outcome<Bin> openBin(FileHandle trash) const override;
    [[nodiscard]] std::error_code note(const Bin& bin, const std::string& name) const override;
    void dropNote(int notes, const std::string& name) const override;
    [[nodiscard]] std::optional<TrashNote> noteOn(int notes, const std::string& name) const override;
    [[nodiscard]] std::optional<std::string> notedName(const std::string& note) const override;
    [[nodiscard]] std::size_t noteSuffix() const override;
    [[nodiscard]] std::optional<Way> wayTo(const Path& contents) const override;
};

}  // namespace tavrel
