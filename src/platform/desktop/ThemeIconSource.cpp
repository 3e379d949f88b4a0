#include "platform/desktop/ThemeIconSource.h"

#include "core/Paths.h"
#include "core/Text.h"
#include "platform/desktop/GenericIcon.h"

#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QMimeType>
#include <QPixmap>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

constexpr const char* fallbackTheme = "breeze";

/// Desktops tell Qt where icons lie; on a bare session it has to be told.
void provideThemes() {
    QStringList paths = QIcon::themeSearchPaths();
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        if (!paths.contains(folder + "/icons")) paths.append(folder + "/icons");
    }
    QIcon::setThemeSearchPaths(paths);
    QIcon::setFallbackThemeName(fallbackTheme);
    if (QIcon::themeName().isEmpty()) QIcon::setThemeName(fallbackTheme);
}

QString fileName(const fs::path& path) {
    return QFile::decodeName(Paths::name(path).c_str());
}

/// What people call the application of an entry "org.kde.krita" is "krita", too.
std::string lastPart(const std::string& identifier) {
    return identifier.substr(identifier.rfind('.') + 1);
}

bool isNamed(const InstalledEntry& entry, const std::string& lowercased) {
    return Text::lowercased(entry.identifier) == lowercased ||
           Text::lowercased(entry.entry.value("Name").value_or("")) == lowercased ||
           Text::lowercased(lastPart(entry.identifier)) == lowercased;
}

InstalledApplication applicationOf(const InstalledEntry& entry) {
    return {entry.file, entry.entry.value("Name").value_or(entry.identifier)};
}

template <typename Test>
std::optional<InstalledApplication> firstWhere(const std::vector<InstalledEntry>& entries, Test test) {
    const auto found = std::find_if(entries.begin(), entries.end(), test);
    return found == entries.end() ? std::nullopt : std::optional(applicationOf(*found));
}

}  // namespace

ThemeIconSource::ThemeIconSource(std::vector<Path> applicationFolders)
    : folders_(std::move(applicationFolders)) {
    provideThemes();
}

QImage ThemeIconSource::iconForFile(const Path& path) {
    const std::string extension = Paths::extension(path);
    if (extension == "app") return firstOf({"application-x-executable"});
    if (extension == "desktop") {
        const auto& all = entries();
        const auto found =
            std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.file == path; });
        if (found != all.end()) {
            const std::string icon = found->entry.value("Icon").value_or("");
            return firstOf({QString::fromStdString(icon), "application-x-executable"});
        }
    }
    std::error_code ignored;
    return fs::is_directory(path, ignored) ? iconForFolder() : iconForName(fileName(path));
}

QImage ThemeIconSource::iconForType(std::string_view extension) {
    if (extension.empty()) return firstOf({});
    return iconForName("name." +
                       QString::fromUtf8(extension.data(), static_cast<qsizetype>(extension.size())));
}

QImage ThemeIconSource::iconForFolder() {
    return firstOf({"folder", "inode-directory"});
}

std::optional<InstalledApplication> ThemeIconSource::applicationNamed(std::string_view name) {
    return firstWhere(entries(), [wanted = Text::lowercased(name)](const InstalledEntry& each) {
        return isNamed(each, wanted);
    });
}

std::optional<InstalledApplication> ThemeIconSource::applicationWithIdentifier(std::string_view identifier) {
    return firstWhere(entries(),
                      [identifier](const InstalledEntry& each) { return each.identifier == identifier; });
}

const std::vector<InstalledEntry>& ThemeIconSource::entries() {
    if (!entries_) {
        entries_ = installedEntries(folders_);
        std::erase_if(*entries_, [](const InstalledEntry& each) { return each.entry.isTrue("Hidden"); });
    }
    return *entries_;
}

QImage ThemeIconSource::iconForName(const QString& fileName) {
    const QMimeType type = types_.mimeTypeForFile(fileName, QMimeDatabase::MatchExtension);
    return firstOf({type.iconName(), type.genericIconName()});
}

QImage ThemeIconSource::firstOf(const QStringList& names) {
    for (const QString& name : names + QStringList{"application-octet-stream", "text-x-generic", "unknown"}) {
        if (name.isEmpty()) continue;
        auto known = images_.constFind(name);
        if (known == images_.constEnd()) known = images_.insert(name, load(name));
        if (!known->isNull()) return *known;
    }
    return genericIcon(side);
}

QImage ThemeIconSource::load(const QString& name) {
    // A path may name a pipe, which would keep its reader waiting.
    const bool isPath = name.startsWith('/');
    if (isPath && !QFileInfo(name).isFile()) return {};
    const QIcon icon = isPath ? QIcon(name) : QIcon::fromTheme(name);
    QImage image = icon.pixmap(QSize(side, side), 1.0).toImage();
    if (image.isNull() || image.size() == QSize(side, side)) return image;
    return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace tavrel
