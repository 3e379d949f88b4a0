#include "disk/FolderListing.h"

#include "core/FileHandle.h"
#include "core/Paths.h"
#include "core/Text.h"
#include "platform/FolderReader.h"

#include <algorithm>
#include <fcntl.h>
#include <utility>

namespace tavrel {
namespace {

constexpr std::size_t entriesPerStopCheck = 1024;

struct Found {
    std::string name;
    std::optional<std::int64_t> fileSize;
};

std::vector<Found> entriesOf(const std::filesystem::path& folder, const std::stop_token& stop) {
    std::vector<Found> found;
    const FileHandle handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!handle) return found;
    std::size_t seen = 0;
    systemFolderReader().read(handle.get(), [&](const FolderEntry& entry) {
        if (entry.kind == FolderEntry::Kind::folder) {
            found.push_back({.name = std::string(entry.name), .fileSize = std::nullopt});
        } else if (entry.kind != FolderEntry::Kind::link && entry.measured) {
            found.push_back({.name = std::string(entry.name), .fileSize = entry.allocated});
        }
        return ++seen % entriesPerStopCheck != 0 || !stop.stop_requested();
    });
    return found;
}

bool isPackage(const std::filesystem::path& name, const FolderListing::Packages& packages) {
    if (packages.empty()) return false;
    const std::string ending = Text::lowercased(Paths::extension(name));
    return std::find(packages.begin(), packages.end(), ending) != packages.end();
}

}  // namespace

FolderListing FolderListing::of(const std::filesystem::path& folder, const Packages& packages,
                                const std::stop_token& stop) {
    std::vector<Found> found = entriesOf(folder, stop);
    std::sort(found.begin(), found.end(), [](const Found& a, const Found& b) { return a.name < b.name; });

    FolderListing listing;
    listing.all.reserve(found.size());
    auto paths = std::make_shared<std::vector<std::string>>();
    paths->reserve(found.size());
    for (const Found& each : found) {
        AnalyzeEntry entry{.url = folder / each.name};
        if (each.fileSize) {
            entry.size = each.fileSize;
            entry.files = 1;
        } else {
            entry.isFolder = !isPackage(each.name, packages);
        }
        listing.all.push_back(std::move(entry));
        paths->push_back(listing.all.back().url.native());
    }
    listing.paths = std::move(paths);
    return listing;
}

}  // namespace tavrel
