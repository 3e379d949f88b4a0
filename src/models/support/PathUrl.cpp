#include "models/support/PathUrl.h"

#include <QByteArray>

namespace tavrel {

QUrl PathUrl::of(const std::filesystem::path& path) {
    return QUrl::fromEncoded("file://" + QByteArray::fromStdString(path.native()).toPercentEncoding("/"));
}

std::filesystem::path PathUrl::pathOf(const QUrl& url) {
    if (!url.isLocalFile() || !url.host().isEmpty()) return {};
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

}  // namespace tavrel
