#include "models/analyze/ExplorerPlaces.h"

#include "core/Files.h"

namespace tavrel::ExplorerPlaces {

namespace {

using Path = std::filesystem::path;

std::string nameOf(const Path& path) {
    return Text::escapedForDisplay(path.filename().native());
}

std::vector<Path> foldersOf(const Places& places, std::string_view text) {
    constexpr std::string_view every = "/*";
    if (!text.ends_with(every)) return {places.resolve(text)};
    text.remove_suffix(every.size());
    const Path parent = places.resolve(text);
    std::vector<Path> folders;
    for (const std::string& name : Files::names(parent)) folders.push_back(parent / name);
    return folders;
}

}  // namespace

std::vector<Found> folders(const Places& places, std::span<const ExplorerPlace> offered) {
    std::vector<Found> found;
    for (const ExplorerPlace& place : offered) {
        const Path path = places.resolve(place.path);
        if (!Files::exists(path)) continue;
        const bool isNamed = *place.title != '\0';
        found.push_back(
            {path, isNamed ? Text::localized(place.title) : nameOf(path), std::string(place.symbol)});
    }
    return found;
}

std::vector<Found> volumes(const Places& places, std::span<const std::string_view> parents) {
    std::vector<Found> found;
    for (const std::string_view text : parents) {
        for (const Path& parent : foldersOf(places, text)) {
            const auto own = Files::identifier(parent);
            for (const std::string& name : Files::names(parent, Files::Hidden::skip)) {
                const Path path = parent / name;
                const auto mounted = Files::identifier(path);
                // A volume lies on another device than the folder that it is mounted in.
                if (own && mounted && own->first != mounted->first && Files::isFolder(path))
                    found.push_back({path, nameOf(path), "internaldrive"});
            }
        }
    }
    return found;
}

}  // namespace tavrel::ExplorerPlaces
