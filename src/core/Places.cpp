#include "core/Places.h"

#include "core/Paths.h"

#include <utility>

namespace tavrel {

Places::Places(const Path& root, const Path& home, UserFolders folders)
    : root_(Paths::resolved(root)), home_(Paths::resolved(home)), folders_(std::move(folders)) {}

Places::Path Places::resolve(std::string_view text) const {
    if (text.starts_with('~')) return Paths::expandingTilde(text, home_);
    while (text.starts_with('/')) text.remove_prefix(1);
    return text.empty() ? root_ : root_ / text;
}

}  // namespace tavrel
