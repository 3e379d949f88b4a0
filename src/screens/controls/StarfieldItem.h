#pragma once

#include "screens/controls/PacedTicker.h"

#include <QQuickItem>
#include <qqmlregistration.h>
#include <vector>

namespace tavrel {

struct DrawnStar;

/// The stars behind a screen. Alive they twinkle and drift a few times a second, and now and then one
/// shoots; otherwise they stand still and cost nothing.
class StarfieldItem : public QQuickItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(Starfield)
    Q_PROPERTY(bool live READ live WRITE setLive NOTIFY liveChanged)
    Q_PROPERTY(bool paused READ paused WRITE setPaused NOTIFY pausedChanged)

  public:
    explicit StarfieldItem(QQuickItem* parent = nullptr);

    [[nodiscard]] bool live() const { return live_; }
    [[nodiscard]] bool paused() const { return paused_; }
    void setLive(bool live);
    void setPaused(bool paused);

  Q_SIGNALS:
    void liveChanged();
    void pausedChanged();

  protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

  private:
    void run();
    void drawAt(double time);
    [[nodiscard]] std::vector<DrawnStar> starsNow() const;

    bool live_ = true;
    bool paused_ = false;
    double time_ = 0;   // seconds since the epoch, of the picture on show; shooting stars cross by it
    double moved_ = 0;  // seconds that the other stars have moved for
    PacedTicker ticker_;
};

}  // namespace tavrel
