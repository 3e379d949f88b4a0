#include "models/show/FileIcons.h"

#include "cleaning/CleanItem.h"
#include "core/Files.h"
#include "core/Paths.h"

#include <utility>

namespace tavrel {
namespace {

constexpr std::string_view bundleSuffix = ".app";

/// The outermost bundle that the path is or lies in.
std::optional<InstalledApplication> enclosingBundle(const std::filesystem::path& url) {
    std::filesystem::path bundle;
    for (const std::filesystem::path& part : url) {
        bundle /= part;
        const std::string& name = part.native();
        if (name.size() > bundleSuffix.size() && name.ends_with(bundleSuffix)) {
            return InstalledApplication{bundle, name.substr(0, name.size() - bundleSuffix.size())};
        }
    }
    return std::nullopt;
}

}  // namespace

FileIcons::FileIcons(IconSource& source, IconOwners owners) : source_(source), owners_(std::move(owners)) {}

FileIcons::Owner FileIcons::owner(const Path& url) {
    if (const Application owner = application(url)) {
        const std::string& key = owner->file.native();
        return {key, owner->name, cached(key, [&] { return source_.iconForFile(owner->file); })};
    }
    if (Files::isFolder(url)) {
        return {"type:folder", "folder", cached("type:folder", [&] { return source_.iconForFolder(); })};
    }
    const std::string type = Paths::extension(url);
    const std::string key = "type:" + type;
    return {key, type, cached(key, [&] { return source_.iconForType(type); })};
}

QImage FileIcons::icon(const CleanItem& item) {
    return owner(item.url).image;
}

std::optional<QImage> FileIcons::ownIcon(const Path& url) {
    if (Paths::extension(url) != "app" && !Files::exists(url)) return std::nullopt;
    return source_.iconForFile(url);
}

QImage FileIcons::folderIcon(const Path& url) {
    return Paths::extension(url) == "app" ? source_.iconForFile(url) : source_.iconForFolder();
}

FileIcons::Application FileIcons::application(const Path& url) {
    if (Application bundle = enclosingBundle(url)) return bundle;
    if (Application owner = applicationByFolder(url)) return owner;
    return applicationByTable(url);
}

FileIcons::Application FileIcons::applicationByFolder(const Path& url) {
    for (const Path& folder : owners_.applicationData) {
        if (!Paths::isInside(url.native(), folder.native())) continue;
        for (const std::string& part : Paths::components(url.native().substr(folder.native().size()))) {
            if (const Application& owner = named(part)) return owner;
        }
    }
    return std::nullopt;
}

FileIcons::Application FileIcons::applicationByTable(const Path& url) {
    for (const KnownOwner& row : owners_.known) {
        if (url.native().find(row.pathContains) == std::string::npos) continue;
        if (Application owner = source_.applicationWithIdentifier(row.bundleIdentifier)) return owner;
        for (const std::string_view entry : row.desktopEntries) {
            if (entry.empty()) break;
            if (Application owner = source_.applicationWithIdentifier(entry)) return owner;
        }
    }
    return std::nullopt;
}

const FileIcons::Application& FileIcons::named(const std::string& name) {
    const auto known = appCache_.find(name);
    if (known != appCache_.end()) return known->second;
    Application found = source_.applicationNamed(name);
    if (!found) found = source_.applicationWithIdentifier(name);
    return appCache_.emplace(name, std::move(found)).first->second;
}

template <typename Load>
QImage FileIcons::cached(const std::string& key, Load load) {
    const auto known = iconCache_.find(key);
    if (known != iconCache_.end()) return known->second;
    return iconCache_.emplace(key, load()).first->second;
}

}  // namespace tavrel
