#pragma once

#include <QQuickImageProvider>

namespace tavrel {

class FileIcons;

/// The icons of files for screens: "image://icon/" and the path, percent-encoded as in a URL.
class FileIconProvider final : public QQuickImageProvider {
  public:
    static constexpr QLatin1String name{"icon"};

    /// `icons` outlives the provider.
    explicit FileIconProvider(FileIcons& icons) : QQuickImageProvider(Image), icons_(icons) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

  private:
    FileIcons& icons_;
};

}  // namespace tavrel
