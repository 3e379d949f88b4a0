#include "screens/analyze/FileIconItem.h"

#include "models/support/PathUrl.h"

#include <QByteArray>
#include <QCache>
#include <QPainter>

namespace tavrel {

namespace {

/// The icon of a path by its bytes. Rows come into view again and again, so that the last 2,000 are kept.
QImage iconFor(FileIcons& icons, const FileIcons::Path& file, bool isFolder) {
    if (isFolder) return icons.folderIcon(file);
    constexpr int most = 2000;
    static QCache<QByteArray, QImage> kept(most);  // for the main thread, as icons are
    const auto path = QByteArray::fromStdString(file.native());
    if (const QImage* known = kept.object(path)) return *known;
    const auto own = icons.ownIcon(file);
    QImage image = own ? *own : icons.owner(file).image;
    kept.insert(path, new QImage(image));
    return image;
}

}  // namespace

void FileIconItem::setShow(ShowState* show) {
    set(show_, QPointer(show));
}

void FileIconItem::setFile(const QUrl& file) {
    set(file_, file);
}

void FileIconItem::setFolder(bool folder) {
    set(isFolder_, folder);
}

template <typename Value>
void FileIconItem::set(Value& member, const Value& value) {
    if (member == value) return;
    member = value;
    polish();
    Q_EMIT changed();
}

void FileIconItem::updatePolish() {
    if (show_ && !file_.isEmpty()) image_ = iconFor(show_->icons(), PathUrl::pathOf(file_), isFolder_);
    update();
}

void FileIconItem::paint(QPainter* painter) {
    if (image_.isNull()) return;
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(boundingRect(), image_);
}

}  // namespace tavrel
