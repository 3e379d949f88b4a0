#include "cleaning/FlatTrash.h"

#include <string>
#include <utility>

namespace tavrel {

MovingTrash::Outcome<FileHandle> FlatTrash::openOnVolume(int top) const {
    return makeOwnFolders(top, {".Trashes", std::to_string(user())});
}

MovingTrash::Outcome<MovingTrash::Bin> FlatTrash::openBin(FileHandle trash) const {
    return Bin{.files = std::move(trash), .notes = {}, .origin = {}, .trash = {}};
}

}  // namespace tavrel
