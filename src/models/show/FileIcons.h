#pragma once

#include "models/show/IconOwners.h"
#include "platform/desktop/IconSource.h"

#include <QImage>
#include <map>
#include <optional>
#include <string>

namespace tavrel {

struct CleanItem;

/// Finds an icon that stands for a path, preferably that of the application which the path belongs to. For
/// the main thread; one serves the whole process, so that each icon and each application is looked up once.
class FileIcons {
  public:
    using Path = std::filesystem::path;

    /// What a path belongs to: an application, its key being the file that stands for it, or else a type of
    /// file, its key beginning with "type:".
    struct Owner {
        std::string key;
        std::string name;
        QImage image;

        [[nodiscard]] bool isType() const { return key.starts_with("type:"); }
    };

    /// `source` outlives this object.
    FileIcons(IconSource& source, IconOwners owners);

    [[nodiscard]] Owner owner(const Path& url);
    /// The image of the item's owner.
    [[nodiscard]] QImage icon(const CleanItem& item);
    /// The path's own icon where it has one: something is there, or it is called like an application.
    [[nodiscard]] std::optional<QImage> ownIcon(const Path& url);
    /// The icon of a folder. Does not read the disk, so a mount that does not answer cannot block it.
    [[nodiscard]] QImage folderIcon(const Path& url);

  private:
    using Application = std::optional<InstalledApplication>;

    [[nodiscard]] Application application(const Path& url);
    [[nodiscard]] Application applicationByFolder(const Path& url);
    [[nodiscard]] Application applicationByTable(const Path& url);
    /// The application that a folder's name stands for.
    [[nodiscard]] const Application& named(const std::string& name);
    template <typename Load>
    [[nodiscard]] QImage cached(const std::string& key, Load load);

    IconSource& source_;
    IconOwners owners_;
    std::map<std::string, QImage> iconCache_;      // by the owner's key
    std::map<std::string, Application> appCache_;  // by the folder's name; misses, too
};

}  // namespace tavrel
