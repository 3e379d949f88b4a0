#include "platform/RunningApplications.h"

#include "core/Paths.h"

namespace tavrel {

bool RunningApplications::use(const std::filesystem::path& path) const {
    const std::string& folder = path.native();
    if (files.contains(folder)) return true;
    const auto below = files.lower_bound(folder + '/');
    return below != files.end() && Paths::isInside(*below, folder);
}

}  // namespace tavrel
