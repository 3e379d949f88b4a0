#pragma once

#include "disk/OrbitPlace.h"
#include "screens/analyze/OrbitLights.h"
#include "screens/controls/PacedTicker.h"

#include <QAccessible>
#include <QQuickItem>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <optional>
#include <qqmlregistration.h>

namespace tavrel {

/// The two rings of a folder, drawn as the disk around a black hole, and what of them pointer, keyboard and
/// screen reader find. Arcs are identified by their ids, as `Text::encodePath` writes them.
class OrbitChartItem : public QQuickItem, private QAccessible::ActivationObserver {
    Q_OBJECT
    QML_NAMED_ELEMENT(OrbitRings)
    /// A `std::shared_ptr<const OrbitLayout>`.
    Q_PROPERTY(QVariant layout READ layoutValue WRITE setLayoutValue NOTIFY layoutChanged)
    /// The arc in focus; empty without one. What is no arc dims them all.
    Q_PROPERTY(QString focusId READ focusId WRITE setFocusId NOTIFY focusIdChanged)
    /// Seconds since the picture began to sweep in.
    Q_PROPERTY(double sweepAge READ sweepAge WRITE setSweepAge NOTIFY sweepAgeChanged)
    /// How much of the circle has been swept, 0 to 1.
    Q_PROPERTY(double reveal READ reveal WRITE setReveal NOTIFY revealChanged)
    Q_PROPERTY(bool animated MEMBER animated_ NOTIFY motionChanged)
    Q_PROPERTY(bool paused MEMBER paused_ NOTIFY motionChanged)
    Q_PROPERTY(bool hasArcs READ hasArcs NOTIFY layoutChanged)
    /// What a screen reader says of each arc; empty while none listens.
    Q_PROPERTY(QStringList spoken READ spoken NOTIFY spokenChanged)
    /// Where each of them lies, as rectangles of the item.
    Q_PROPERTY(QVariantList spokenPlaces READ spokenPlaces NOTIFY spokenPlacesChanged)

  public:
    explicit OrbitChartItem(QQuickItem* parent = nullptr);
    ~OrbitChartItem() override;

    void setLayout(std::shared_ptr<const OrbitLayout> layout);
    [[nodiscard]] QVariant layoutValue() const;
    void setLayoutValue(const QVariant& value);
    [[nodiscard]] QString focusId() const;
    void setFocusId(const QString& id);
    [[nodiscard]] double sweepAge() const { return sweepAge_; }
    void setSweepAge(double seconds);
    [[nodiscard]] double reveal() const { return reveal_; }
    void setReveal(double reveal);
    [[nodiscard]] bool hasArcs() const { return !layout_->inner.empty(); }
    [[nodiscard]] const QStringList& spoken() const { return spoken_; }
    [[nodiscard]] const QVariantList& spokenPlaces() const { return spokenPlaces_; }

    /// Where the keyboard goes from the arc in focus; the first arc without one.
    Q_INVOKABLE [[nodiscard]] QString beside(int step) const;
    Q_INVOKABLE [[nodiscard]] QString outwards() const { return towards(OrbitSide::outer); }
    Q_INVOKABLE [[nodiscard]] QString inwards() const { return towards(OrbitSide::inner); }
    Q_INVOKABLE [[nodiscard]] QString first() const;
    Q_INVOKABLE [[nodiscard]] QString last() const;

    /// Of the arc that `spoken` lists there.
    Q_INVOKABLE [[nodiscard]] QString idAt(int index) const;

    /// The arc at a point of the item.
    [[nodiscard]] QString arcAt(const QPointF& point) const;

  Q_SIGNALS:
    void layoutChanged();
    void focusIdChanged();
    void sweepAgeChanged();
    void revealChanged();
    void motionChanged();
    void spokenChanged();
    void spokenPlacesChanged();

    /// The pointer is on that arc.
    void hovered(const QString& id);
    /// The pointer has left that arc, and is on none.
    void exited(const QString& id);
    void clicked(const QString& id);

  protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void accessibilityActiveChanged(bool active) override;
    [[nodiscard]] QRectF square() const;
    [[nodiscard]] std::optional<OrbitPlace> focused() const;
    [[nodiscard]] std::optional<OrbitPlace> placeOf(int index) const;
    [[nodiscard]] QString idOf(const OrbitPlace& place) const;
    [[nodiscard]] QString towards(OrbitSide side) const;
    void point(const QString& id);
    [[nodiscard]] QRectF placeAt(int index) const;
    void speak();
    void placeSpoken();
    void run();
    void updateHighlight();
    void repaint();
    void moveOn();

    std::shared_ptr<const OrbitLayout> layout_;
    std::string focusId_;
    double sweepAge_ = 0;
    double reveal_ = 1;
    bool animated_ = true;
    bool paused_ = false;

    QString pointed_;  // the arc under the pointer
    QPointF pointer_;
    QString pressed_;
    bool isHeard_;  // a screen reader listens
    QStringList spoken_;
    QVariantList spokenPlaces_;

    OrbitLights lights_;
    double litAt_ = 0;       // seconds, of the last step of the lights
    bool arcsStale_ = true;  // no longer as drawn
    bool motionStale_ = true;
    PacedTicker motionTicker_;
    PacedTicker lightsTicker_;
};

}  // namespace tavrel

Q_DECLARE_METATYPE(std::shared_ptr<const tavrel::OrbitLayout>)
