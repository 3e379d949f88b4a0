#pragma once

#include <QImage>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// An application that is installed: the file that stands for it, and the name that people read.
struct InstalledApplication {
    std::filesystem::path file;
    std::string name;

    bool operator==(const InstalledApplication&) const = default;
};

/// Icons as the system has them, and the applications that it knows. For the main thread. Every icon is an
/// image, at worst a plain sheet; no content of a file is read to choose one.
class IconSource {
  public:
    using Path = std::filesystem::path;

    virtual ~IconSource() = default;

    /// That of a file or folder, or of an application where `path` is the file that stands for one.
    [[nodiscard]] virtual QImage iconForFile(const Path& path) = 0;
    /// That of files with this extension (no dot); a plain one for an unknown extension.
    [[nodiscard]] virtual QImage iconForType(std::string_view extension) = 0;
    [[nodiscard]] virtual QImage iconForFolder() = 0;

    /// By the name of its file or the name that people read; nothing when there is none.
    [[nodiscard]] virtual std::optional<InstalledApplication> applicationNamed(std::string_view name) = 0;
    /// By its bundle identifier or desktop entry; nothing when there is none.
    [[nodiscard]] virtual std::optional<InstalledApplication> applicationWithIdentifier(
        std::string_view identifier) = 0;
};

}  // namespace tavrel
