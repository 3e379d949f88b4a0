#pragma once

#include "platform/desktop/IconSource.h"

#include <QString>
#include <map>
#include <set>
#include <string>

namespace tavrel::testing {

/// Pictures that tell what they stand for, and the applications that a test installs.
class FakeIconSource final : public IconSource {
  public:
    std::map<std::string, InstalledApplication, std::less<>> byName;
    std::map<std::string, InstalledApplication, std::less<>> byIdentifier;
    int lookups = 0;   // of pictures
    int searches = 0;  // for applications by name

    [[nodiscard]] static QImage picture(const std::string& label) {
        QImage image(1, 1, QImage::Format_ARGB32);
        image.setText("label", QString::fromStdString(label));
        return image;
    }
    [[nodiscard]] static std::string label(const QImage& image) { return image.text("label").toStdString(); }

    [[nodiscard]] QImage iconForFile(const Path& path) override { return looked("file " + path.native()); }
    [[nodiscard]] QImage iconForType(std::string_view extension) override {
        return looked("type " + std::string(extension));
    }
    [[nodiscard]] QImage iconForFolder() override { return looked("folder"); }
    [[nodiscard]] std::optional<InstalledApplication> applicationNamed(std::string_view name) override {
        ++searches;
        return found(byName, name);
    }
    [[nodiscard]] std::optional<InstalledApplication> applicationWithIdentifier(
        std::string_view identifier) override {
        return found(byIdentifier, identifier);
    }

  private:
    template <typename Map>
    static std::optional<InstalledApplication> found(const Map& map, std::string_view key) {
        const auto place = map.find(key);
        return place == map.end() ? std::nullopt : std::optional(place->second);
    }
    QImage looked(const std::string& label) {
        ++lookups;
        return picture(label);
    }
};

}  // namespace tavrel::testing
