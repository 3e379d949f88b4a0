#pragma once

#include "models/program/AppState.h"

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
    Q_PROPERTY(tavrel::AppState* app READ app WRITE setApp NOTIFY changed)
    Q_PROPERTY(QUrl file READ file WRITE setFile NOTIFY changed)

  public:
    using QQuickPaintedItem::QQuickPaintedItem;

    [[nodiscard]] AppState* app() const { return app_; }
    void setApp(AppState* app);
    [[nodiscard]] const QUrl& file() const { return file_; }
    void setFile(const QUrl& file);

    void paint(QPainter* painter) override;

  Q_SIGNALS:
    void changed();

  private:
    void find();

    QPointer<AppState> app_;
    QUrl file_;
    QImage image_;
};

}  // namespace tavrel
