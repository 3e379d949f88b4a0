#include "cleaning/FlatTrash.h"

#include "core/Paths.h"

#include <string>
#include <utility>

namespace tavrel {

namespace {

constexpr const char* volumeFolder = ".Trashes";

}  // namespace

MovingTrash::Outcome<MovingTrash::OnVolume> FlatTrash::openOnVolume(int top) const {
    const std::vector<std::string> way = {volumeFolder, std::to_string(user())};
    return makeOwnFolders(top, way).map(
        [&](FileHandle trash) { return OnVolume{.trash = std::move(trash), .way = Path(way[0]) / way[1]}; });
}

MovingTrash::Outcome<MovingTrash::Bin> FlatTrash::openBin(FileHandle trash) const {
    return Bin{.files = std::move(trash), .notes = {}, .contents = {}, .origin = {}, .trash = {}};
}

std::optional<MovingTrash::Way> FlatTrash::wayTo(const Path& contents) const {
    if (contents == this->contents()) {
        return Way{
            .anchor = home(), .trash = Paths::components(folder().native()), .contents = {}, .notes = {}};
    }
    const std::string own = std::to_string(user());
    const Path above = contents.parent_path();
    if (contents.filename() != own || above.filename() != volumeFolder) return std::nullopt;
    return Way{.anchor = above.parent_path(), .trash = {volumeFolder, own}, .contents = {}, .notes = {}};
}

}  // namespace tavrel
