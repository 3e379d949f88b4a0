#include "cleaning/SpecialScanners.h"

#include "cleaning/InUse.h"
#include "cleaning/Scanning.h"
#include "cleaning/TrashNote.h"
#include "core/FileHandle.h"
#include "core/Files.h"
#include "core/Phrase.h"
#include "core/Text.h"

#include <algorithm>
#include <charconv>
#include <fcntl.h>
#include <map>
#include <regex>

namespace tavrel::SpecialScanners {

using Scanning::note;
using Scanning::vet;
using Text::localized;

namespace {

/// The size of a candidate that exists, that the guard allows and that is worth a line.
std::optional<std::int64_t> worthwhileSize(const Path& path, const SafetyGuard& safety) {
    if (!Files::exists(path) || !vet(safety, path)) return std::nullopt;
    const std::int64_t size = FileSizer::size(path);
    if (size < minItemSize) return std::nullopt;
    return size;
}

std::string withoutApp(std::string name) {
    constexpr std::string_view suffix = ".app";
    for (auto at = name.find(suffix); at != std::string::npos; at = name.find(suffix))
        name.erase(at, suffix.size());
    return name;
}

}  // namespace

namespace {

/// Adds the cache of the application `name`. One that is in use is for review.
void addCache(CleanItem item, const std::string& name, const std::string& phrase, const Search& search,
              Items& items) {
    const auto size = worthwhileSize(item.url, search.safety);
    if (!size) return;
    item.size = *size;
    item.note = note(name, phrase);
    if (InUse::isInUse(item, search.running)) {
        const bool adds = search.manner.remarks == Manner::Remarks::addToNote;
        item.risk = Risk::review;
        item.note = note(adds ? item.note : name, localized("running; quit it first"));
    }
    items.push_back(std::move(item));
}

bool isSkipped(const WebCachePlaces& place, const std::string& name) {
    if (!place.skippedPrefix.empty() && name.starts_with(place.skippedPrefix)) return true;
    return std::find(place.skipped.begin(), place.skipped.end(), name) != place.skipped.end();
}

}  // namespace

Items appWebCaches(const std::vector<WebCachePlaces>& places, const Search& search) {
    Items items;
    for (const WebCachePlaces& place : places) {
        for (const Path& application : Files::matching(search.home, place.folders + "/*")) {
            const std::string name = Paths::name(application);
            if (isSkipped(place, name)) continue;
            const Occupants occupants{.identifiers = {}, .names = {name}, .profiles = {application}};
            for (const std::string& part : place.parts) {
                for (const Path& folder : Files::matching(application, part)) {
                    for (const WebCache& cache : place.caches) {
                        const std::string phrase =
                            localized(*cache.note == '\0' ? "rebuilt on next launch" : cache.note);
                        addCache({.url = folder / cache.path,
                                  .category = CleanCategory::appData,
                                  .risk = cache.risk,
                                  .occupants = occupants},
                                 name, phrase, search, items);
                    }
                }
            }
        }
    }
    return items;
}

Items containerCaches(const std::vector<ContainerPlace>& places, const Search& search,
                      const ApplicationNames& names) {
    Items items;
    for (const ContainerPlace& place : places) {
        const auto& reviewed = place.reviewed;
        for (const std::string& container : Files::names(search.home / place.folder, Files::Hidden::skip)) {
            const auto shownName = names.displayName(container);
            const bool isReviewed = std::find(reviewed.begin(), reviewed.end(), container) != reviewed.end();
            addCache({.url = search.home / place.folder / container / place.inner,
                      .category = CleanCategory::userCaches,
                      .risk = isReviewed ? Risk::review : Risk::safe,
                      .occupants = {.identifiers = {container}, .names = {}, .profiles = {}}},
                     shownName ? withoutApp(*shownName) : container,
                     isReviewed ? localized("may hold more than can be had again")
                                : localized("rebuilt by the app on demand"),
                     search, items);
        }
    }
    return items;
}

namespace {

struct Extension {
    std::string name;
    std::vector<int> version;
};

/// "1.10.0-darwin-arm64" as 1, 10, 0. A piece that is no number is left out.
std::vector<int> versionNumbers(std::string_view text) {
    text = text.substr(0, text.find('-'));
    std::vector<int> numbers;
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, text.find('.'));
        int number = 0;
        const auto [end, error] = std::from_chars(piece.data(), piece.data() + piece.size(), number);
        if (error == std::errc() && end == piece.data() + piece.size()) numbers.push_back(number);
        text.remove_prefix(std::min(piece.size() + 1, text.size()));
    }
    return numbers;
}

/// The versions of each extension in a folder, by the extension's name without its version.
std::map<std::string, std::vector<Extension>> extensionsIn(const Path& folder) {
    static const std::regex versionAtEnd(R"(-(\d+(?:\.\d+)+)(?:-[a-z0-9-]+)?$)");
    constexpr std::size_t longestName = 255;  // keeps the matcher's recursion bounded
    std::map<std::string, std::vector<Extension>> groups;
    for (const std::string& name : Files::names(folder)) {
        std::smatch match;
        if (name.size() > longestName || !std::regex_search(name, match, versionAtEnd)) continue;
        groups[match.prefix().str()].push_back({name, versionNumbers(match.str().substr(1))});
    }
    return groups;
}

}  // namespace

Items oldEditorExtensions(const Path& home, const SafetyGuard& safety) {
    Items items;
    for (const std::string_view folder :
         {".vscode/extensions", ".vscode-insiders/extensions", ".cursor/extensions", ".windsurf/extensions",
          ".vscode-oss/extensions"}) {
        for (const auto& [key, versions] : extensionsIn(home / folder)) {
            const auto newest =
                std::max_element(versions.begin(), versions.end(),
                                 [](const auto& a, const auto& b) { return a.version < b.version; });
            for (const Extension& extension : versions) {
                const Path path = home / folder / extension.name;
                if (extension.name == newest->name || !vet(safety, path)) continue;
                items.push_back({
                    .url = path,
                    .size = FileSizer::size(path),
                    .category = CleanCategory::editors,
                    .risk = Risk::safe,
                    .note = localized("Superseded by") + " " + newest->name,
                });
            }
        }
    }
    return items;
}

namespace {

/// The item of an entry of a Trash that keeps notes.
void judgeByNote(CleanItem& item, const std::optional<TrashNote>& trashNote,
                 std::chrono::local_seconds oldBefore) {
    if (!trashNote || !trashNote->moved) {
        item.risk = Risk::review;
        item.note = note(item.note, localized("when is not known"));
        return;
    }
    if (*trashNote->moved >= oldBefore) item.risk = Risk::review;
    constexpr std::size_t dayLength = 10;
    item.note = note(item.note, phrase("deleted on {}", noteDate(*trashNote->moved).substr(0, dayLength)));
}

}  // namespace

Items trashed(const VolumeTrashes& trashes, int reviewDays, const SafetyGuard& safety, Instant now) {
    Items items;
    const auto oldBefore = localTime(now) - Days(reviewDays);
    for (const Path& trash : trashes) {
        const Path noteFolder = trash.parent_path() / "info";
        const FileHandle notes(::open(noteFolder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        for (const std::string& name : Files::names(trash)) {
            CleanItem item{.url = trash / name,
                           .category = CleanCategory::trash,
                           .risk = Risk::safe,
                           .note = localized("Already in the Trash"),
                           .permanent = true};
            if (!vet(safety, item.url)) continue;
            item.size = FileSizer::size(item.url);
            if (reviewDays > 0)
                judgeByNote(item, TrashNote::read(notes.get(), TrashNote::nameFor(name)), oldBefore);
            items.push_back(std::move(item));
        }
    }
    return items;
}

Items olderVersions(const Path& in, CleanCategory category, const std::string& label,
                    const SafetyGuard& safety) {
    const auto names = Files::names(in, Files::Hidden::skip);
    const auto date = [&](const std::string& name) {
        return Files::modificationDate(in / name).value_or(distantPast);
    };
    const auto newest = std::max_element(names.begin(), names.end(),
                                         [&](const auto& a, const auto& b) { return date(a) < date(b); });
    Items items;
    for (const std::string& name : names) {
        if (name == *newest || !vet(safety, in / name)) continue;
        items.push_back({
            .url = in / name,
            .size = FileSizer::size(in / name),
            .category = category,
            .risk = Risk::safe,
            .note = note(label, localized("older version; the newest stays")),
        });
    }
    return items;
}

}  // namespace tavrel::SpecialScanners
