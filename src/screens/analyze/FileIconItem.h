#pragma once

#include "models/show/ShowState.h"

#include <QImage>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QUrl>
#include <qqmlregistration.h>

namespace tavrel {

/// The icon of a file. Rows of one kind share one image.
class FileIconItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(FileIcon)
    Q_PROPERTY(tavrel::ShowState* show READ show WRITE setShow NOTIFY changed)
    Q_PROPERTY(QUrl file READ file WRITE setFile NOTIFY changed)

  public:
    using QQuickPaintedItem::QQuickPaintedItem;

    [[nodiscard]] ShowState* show() const { return show_; }
    void setShow(ShowState* show);
    [[nodiscard]] const QUrl& file() const { return file_; }
    void setFile(const QUrl& file);

    void paint(QPainter* painter) override;

  Q_SIGNALS:
    void changed();

  private:
    void find();

    QPointer<ShowState> show_;
    QUrl file_;
    QImage image_;
};

}  // namespace tavrel
