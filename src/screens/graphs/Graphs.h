#pragma once

#include "screens/graphs/Graph.h"

#include <qqmlregistration.h>

namespace tavrel {

// The bases are named in full for the checks of the screens, which know them by that alone.

/// A line over its values, the area below it filled.
class Sparkline : public tavrel::HistoryGraph {
    Q_OBJECT
    QML_ELEMENT

  public:
    using HistoryGraph::HistoryGraph;
    void paint(QPainter* painter) override;
};

/// A bar for each value, side by side.
class Bars : public tavrel::HistoryGraph {
    Q_OBJECT
    QML_ELEMENT

  public:
    using HistoryGraph::HistoryGraph;
    void paint(QPainter* painter) override;
};

/// A round bar that is filled from its left.
class Meter : public tavrel::ShareGraph {
    Q_OBJECT
    QML_ELEMENT

  public:
    using ShareGraph::ShareGraph;
    void paint(QPainter* painter) override;
};

/// A circle that is drawn on from its top, clockwise.
class Ring : public tavrel::ShareGraph {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double lineWidth MEMBER lineWidth_ NOTIFY lineWidthChanged)

  public:
    using ShareGraph::ShareGraph;
    void paint(QPainter* painter) override;

  Q_SIGNALS:
    void lineWidthChanged();

  private:
    double lineWidth_ = 6;  // points
};

}  // namespace tavrel
