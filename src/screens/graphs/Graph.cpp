#include "screens/graphs/Graph.h"

#include <algorithm>
#include <cmath>

namespace tavrel {

Graph::Graph(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void Graph::setColour(const QColor& colour) {
    if (colour_ == colour) return;
    colour_ = colour;
    Q_EMIT colourChanged();
    update();
}

QColor Graph::faded(double opacity) const {
    QColor colour = colour_;
    colour.setAlphaF(static_cast<float>(opacity * colour_.alphaF()));
    return colour;
}

void ShareGraph::setFraction(double fraction) {
    const double limited = std::isnan(fraction) ? 0 : std::clamp(fraction, 0.0, 1.0);
    if (fraction_ == limited) return;
    fraction_ = limited;
    Q_EMIT fractionChanged();
    update();
}

void HistoryGraph::setValues(const QList<double>& values) {
    if (values_ == values) return;
    values_ = values;
    Q_EMIT valuesChanged();
    update();
}

}  // namespace tavrel
