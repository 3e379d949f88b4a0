#include "app/FileIconProvider.h"

#include "presentation/FileIcons.h"

#include <QByteArray>

namespace tavrel {

QImage FileIconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const QByteArray path = QByteArray::fromPercentEncoding(id.toUtf8());
    const FileIcons::Path file = "/" + path.toStdString();
    const auto own = icons_.ownIcon(file);
    QImage image = own ? *own : icons_.owner(file).image;
    if (size != nullptr) *size = image.size();
    if (requestedSize.isEmpty() || image.isNull()) return image;
    return image.scaled(requestedSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace tavrel
