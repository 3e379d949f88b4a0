#pragma once

#include <QColor>
#include <QQuickItem>
#include <qqmlregistration.h>

namespace tavrel {

/// Two gradients behind a screen: from top to bottom, and a glow at the upper right. Painted once for a size
/// and then only copied, since every frame of what moves above it lays it out again.
class BackdropItem : public QQuickItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(Backdrop)
    Q_PROPERTY(QColor upper MEMBER upper_ WRITE setUpper)
    Q_PROPERTY(QColor lower MEMBER lower_ WRITE setLower)
    Q_PROPERTY(QColor glow MEMBER glow_ WRITE setGlow)

  public:
    explicit BackdropItem(QQuickItem* parent = nullptr);

    void setUpper(const QColor& colour) { assign(upper_, colour); }
    void setLower(const QColor& colour) { assign(lower_, colour); }
    void setGlow(const QColor& colour) { assign(glow_, colour); }

  protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

  private:
    void assign(QColor& member, const QColor& colour);
    [[nodiscard]] QImage painted(const QSize& pixels) const;

    QColor upper_;
    QColor lower_;
    QColor glow_;
    bool stale_ = true;
};

}  // namespace tavrel
