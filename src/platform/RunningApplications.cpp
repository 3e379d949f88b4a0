#include "platform/RunningApplications.h"

#include "core/Paths.h"
#include "core/Text.h"

namespace tavrel {

void RunningApplications::add(const std::string& bundleID, const std::string& name) {
    const auto insert = [](std::set<std::string>& texts, const std::string& text) {
        if (!text.empty()) texts.insert({text, Text::lowercased(text)});
    };
    insert(bundleIDs, bundleID);
    insert(names, name);
}

bool RunningApplications::use(const std::filesystem::path& path) const {
    const std::string& folder = path.native();
    if (files.contains(folder)) return true;
    const auto below = files.lower_bound(folder + '/');
    return below != files.end() && Paths::isInside(*below, folder);
}

}  // namespace tavrel
