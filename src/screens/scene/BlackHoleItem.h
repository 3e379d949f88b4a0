#pragma once

#include "models/show/Shockwave.h"
#include "models/show/SwallowFeed.h"
#include "presentation/MotionClock.h"
#include "screens/controls/PacedTicker.h"
#include "screens/scene/ScenePictures.h"

#include <QColor>
#include <QPointer>
#include <QQuickItem>
#include <memory>
#include <qqmlregistration.h>

namespace tavrel {

/// The animated heart of the program's look: a disc of light around a dark middle that spins faster while the
/// program works, pulls in the icons of a feed, flares as each lands, grows, and sends out a wave when a run
/// has ended. What it shows may reach far beyond the item.
class BlackHoleItem : public QQuickItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(BlackHole)
    Q_PROPERTY(QColor glow READ glow WRITE setGlow NOTIFY changed)
    Q_PROPERTY(bool spinning MEMBER spinning_ NOTIFY changed)
    Q_PROPERTY(bool scanning MEMBER scanning_ NOTIFY changed)
    Q_PROPERTY(double open MEMBER open_ NOTIFY changed)
    Q_PROPERTY(bool suction MEMBER suction_ NOTIFY changed)
    Q_PROPERTY(double growth MEMBER growth_ NOTIFY changed)
    Q_PROPERTY(tavrel::SwallowFeed* feed READ feed WRITE setFeed NOTIFY changed)
    Q_PROPERTY(tavrel::Shockwave* shockwave READ shockwave WRITE setShockwave NOTIFY changed)
    Q_PROPERTY(bool animated MEMBER animated_ NOTIFY changed)
    Q_PROPERTY(bool paused MEMBER paused_ NOTIFY changed)

  public:
    explicit BlackHoleItem(QQuickItem* parent = nullptr);
    ~BlackHoleItem() override;

    [[nodiscard]] const QColor& glow() const { return glow_; }
    [[nodiscard]] SwallowFeed* feed() const { return feed_; }
    [[nodiscard]] Shockwave* shockwave() const { return shockwave_; }
    void setGlow(const QColor& glow);
    void setFeed(SwallowFeed* feed);
    void setShockwave(Shockwave* shockwave);

  Q_SIGNALS:
    void changed();

  protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;

  private:
    void stand();

    QColor glow_ = Qt::white;
    bool spinning_ = false;
    bool scanning_ = false;
    double open_ = 0;
    bool suction_ = false;
    double growth_ = 0;
    QPointer<SwallowFeed> feed_;
    QPointer<Shockwave> shockwave_;
    bool animated_ = true;
    bool paused_ = false;

    MotionClock motion_;
    PacedTicker ticker_;
    std::unique_ptr<ScenePictures> pictures_;
    int pictureSide_ = 0;  // pixels
};

}  // namespace tavrel
