#include "screens/analyze/FileIconItem.h"

#include "presentation/FileIcons.h"

#include <QByteArray>
#include <QPainter>

namespace tavrel {

void FileIconItem::setApp(AppState* app) {
    if (app_ == app) return;
    app_ = app;
    find();
}

void FileIconItem::setFile(const QUrl& file) {
    if (file_ == file) return;
    file_ = file;
    find();
}

/// The bytes of the path, whatever they mean.
void FileIconItem::find() {
    if (app_ && !file_.isEmpty()) {
        const QByteArray encoded = file_.path(QUrl::FullyEncoded).toLatin1();
        const FileIcons::Path path = QByteArray::fromPercentEncoding(encoded).toStdString();
        const auto own = app_->icons().ownIcon(path);
        image_ = own ? *own : app_->icons().owner(path).image;
    }
    Q_EMIT changed();
    update();
}

void FileIconItem::paint(QPainter* painter) {
    if (image_.isNull()) return;
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(boundingRect(), image_);
}

}  // namespace tavrel
