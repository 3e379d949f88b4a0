#pragma once

#include "cleaning/MovingTrash.h"

namespace tavrel {

/// A Trash that is a plain folder of things, as on a Mac: ".Trash" in the home, ".Trashes" with a folder for
/// each user at the top of another volume.
class FlatTrash final : public MovingTrash {
  public:
    /// `folder` is relative to `home`; `user` is whose Trash it is. `access` is borrowed.
    FlatTrash(const FolderAccess& access, Path home, Path folder, uid_t user)
        : MovingTrash(access, std::move(home), std::move(folder), user) {}

    void erased(const Path& /*path*/) override {}
    [[nodiscard]] Path contents() const override { return home() / folder(); }

  private:
    [[nodiscard]] Outcome<OnVolume> openOnVolume(int top) const override;
    [[nodiscard]] Outcome<Bin> openBin(FileHandle trash) const override;
    [[nodiscard]] std::error_code note(const Bin& /*bin*/, const std::string& /*name*/) const override {
        return {};
    }
    void dropNote(int /*notes*/, const std::string& /*name*/) const override {}
    [[nodiscard]] std::optional<TrashNote> noteOn(int /*notes*/, const std::string& /*name*/) const override {
        return std::nullopt;
    }
    [[nodiscard]] std::optional<std::string> notedName(const std::string& /*note*/) const override {
        return std::nullopt;
    }
    [[nodiscard]] std::optional<Way> wayTo(const Path& contents) const override;
    [[nodiscard]] std::size_t noteSuffix() const override { return 0; }
};

}  // namespace tavrel
