#include "cli/Selection.h"

#include "core/Paths.h"
#include "core/Text.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace tavrel::cli::Selection {

Items preselected(const Items& found) {
    Items chosen;
    std::copy_if(found.begin(), found.end(), std::back_inserter(chosen),
                 [](const CleanItem& item) { return item.isPreselected(); });
    return chosen;
}

namespace {

std::string key(const std::filesystem::path& path) {
    return Paths::standardized(path).native();
}

/// Only a path has several spellings.
std::string key(const CleanItem& item) {
    return item.isCommand() ? item.url.native() : key(item.url);
}

}  // namespace

Named named(const Items& found, const std::vector<std::string>& names,
            const std::filesystem::path& workingFolder) {
    std::set<std::string> known;
    for (const CleanItem& item : found) known.insert(key(item));

    Named result;
    std::set<std::string> chosen;
    for (const std::string& name : names) {
        // An absolute name takes the place of the working folder.
        const std::string asBytes = key(workingFolder / name);
        const std::string asEscaped = key(workingFolder / Text::decodePath(name));
        if (known.contains(name)) {
            chosen.insert(name);
        } else if (known.contains(asBytes)) {
            chosen.insert(asBytes);
        } else if (known.contains(asEscaped)) {
            chosen.insert(asEscaped);
        } else {
            result.missing.push_back(name);
        }
    }
    std::copy_if(found.begin(), found.end(), std::back_inserter(result.items),
                 [&](const CleanItem& item) { return chosen.contains(key(item)); });
    return result;
}

}  // namespace tavrel::cli::Selection
