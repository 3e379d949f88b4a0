#include "platform/linux/desktop/DesktopEntries.h"

#include "core/Files.h"

#include <utility>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

/// Entries lie at most a few folders deep; a link that leads back up must not be followed for ever.
constexpr int maximumDepth = 4;

void addEntries(const fs::path& folder, const std::string& prefix, int depth,
                std::vector<InstalledEntry>& found) {
    constexpr std::string_view suffix = ".desktop";
    for (const std::string& name : Files::names(folder, Files::Hidden::skip)) {
        std::error_code ignored;
        if (fs::is_directory(folder / name, ignored)) {
            if (depth < maximumDepth) addEntries(folder / name, prefix + name + "-", depth + 1, found);
        } else if (name.ends_with(suffix)) {
            auto entry = DesktopEntry::read(folder / name);
            if (!entry) continue;
            found.push_back(
                {prefix + name.substr(0, name.size() - suffix.size()), folder / name, *std::move(entry)});
        }
    }
}

}  // namespace

std::vector<InstalledEntry> installedEntries(const std::vector<fs::path>& folders) {
    std::vector<InstalledEntry> found;
    for (const fs::path& folder : folders) addEntries(folder, "", 0, found);
    return found;
}

}  // namespace tavrel
