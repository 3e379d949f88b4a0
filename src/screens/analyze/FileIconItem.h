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
    /// Whether `file` is known to be a folder. Its icon is then found without reading the disk.
    Q_PROPERTY(bool folder READ isFolder WRITE setFolder NOTIFY changed)

  public:
    using QQuickPaintedItem::QQuickPaintedItem;

    [[nodiscard]] ShowState* show() const { return show_; }
    void setShow(ShowState* show);
    [[nodiscard]] const QUrl& file() const { return file_; }
    void setFile(const QUrl& file);
    [[nodiscard]] bool isFolder() const { return isFolder_; }
    void setFolder(bool folder);

    void paint(QPainter* painter) override;

  Q_SIGNALS:
    void changed();

  protected:
    /// Finds the icon when all properties have their values: that may read the disk.
    void updatePolish() override;

  private:
    template <typename Value>
    void set(Value& member, const Value& value);

    QPointer<ShowState> show_;
    QUrl file_;
    bool isFolder_ = false;
    QImage image_;
};

}  // namespace tavrel
