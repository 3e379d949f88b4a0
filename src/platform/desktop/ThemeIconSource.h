#pragma once

#include "platform/desktop/IconSource.h"
#include "platform/linux/desktop/DesktopEntries.h"

#include <QHash>
#include <QMimeDatabase>
#include <QString>
#include <QStringList>
#include <vector>

namespace tavrel {

/// Icons of the user's icon theme, at 64 pixels; applications are the installed desktop entries.
class ThemeIconSource final : public IconSource {
  public:
    static constexpr int side = 64;  // pixels

    /// Looks for icons where the environment says that they lie, and in Breeze where the user's theme is not
    /// to be had. The entries in these folders are read when first asked for.
    explicit ThemeIconSource(std::vector<Path> applicationFolders);

    [[nodiscard]] QImage iconForFile(const Path& path) override;
    [[nodiscard]] QImage iconForType(std::string_view extension) override;
    [[nodiscard]] QImage iconForFolder() override;
    [[nodiscard]] std::optional<InstalledApplication> applicationNamed(std::string_view name) override;
    [[nodiscard]] std::optional<InstalledApplication> applicationWithIdentifier(
        std::string_view identifier) override;

  private:
    [[nodiscard]] const std::vector<InstalledEntry>& entries();
    [[nodiscard]] QImage iconForName(const QString& fileName);
    /// The first of these icons that there is, each a name in the theme or the path of a picture.
    [[nodiscard]] QImage firstOf(const QStringList& names);
    [[nodiscard]] QImage load(const QString& name);

    std::vector<Path> folders_;
    std::optional<std::vector<InstalledEntry>> entries_;
    QMimeDatabase types_;
    QHash<QString, QImage> images_;  // by the name in the theme; null where it has none
};

}  // namespace tavrel
