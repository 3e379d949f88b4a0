#include "screens/graphs/Graphs.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace tavrel {

namespace {

constexpr double lineWidth = 1.5;     // of a sparkline, points
constexpr double areaOpacity = 0.35;  // under it
constexpr double trackOpacity = 0.08;
constexpr double fillFrom = 0.55;
constexpr double barGap = 0.3;    // of the room of a bar
constexpr int fullCircle = 5760;  // in the painter's sixteenths of a degree

/// The line of the values from edge to edge, its stroke within the height.
QPolygonF lineOf(const QList<double>& values, double width, double height) {
    const auto last = static_cast<double>(std::max<qsizetype>(values.size(), 2) - 1);
    const double room = height - 2 * lineWidth;
    QPolygonF line;
    for (qsizetype i = 0; i < values.size(); ++i) {
        const double share = std::clamp(values[i], 0.0, 1.0);
        line.append({static_cast<double>(i) / last * width, height - lineWidth - share * room});
    }
    return line;
}

}  // namespace

void Sparkline::paint(QPainter* painter) {
    const QPolygonF line = lineOf(values(), width(), height());
    if (line.isEmpty()) return;
    QPolygonF area = line;
    area.append({line.last().x(), height()});
    area.append({line.first().x(), height()});
    painter->setPen(Qt::NoPen);
    painter->setBrush(faded(areaOpacity));
    painter->drawPolygon(area);
    painter->setPen(QPen(colour(), lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(line);
}

void Bars::paint(QPainter* painter) {
    if (values().isEmpty()) return;
    const double room = width() / static_cast<double>(values().size());
    const double barWidth = room * (1 - barGap);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour());
    for (qsizetype i = 0; i < values().size(); ++i) {
        const double tall = std::max(std::clamp(values()[i], 0.0, 1.0) * height(), 1.0);
        const QRectF bar((static_cast<double>(i) + barGap / 2) * room, height() - tall, barWidth, tall);
        painter->drawRoundedRect(bar, 1, 1);
    }
}

void Meter::paint(QPainter* painter) {
    const double radius = height() / 2;
    QPainterPath track;
    track.addRoundedRect(QRectF(0, 0, width(), height()), radius, radius);
    painter->setPen(Qt::NoPen);
    painter->fillPath(track, QColor::fromRgbF(1, 1, 1, static_cast<float>(trackOpacity)));
    if (fraction() <= 0) return;
    QLinearGradient fill(0, 0, width() * fraction(), 0);
    fill.setColorAt(0, faded(fillFrom));
    fill.setColorAt(1, colour());
    QPainterPath filled;
    filled.addRoundedRect(QRectF(0, 0, std::max(width() * fraction(), height()), height()), radius, radius);
    painter->fillPath(filled, fill);
}

void Ring::paint(QPainter* painter) {
    const double side = std::min(width(), height()) - lineWidth_;
    const QRectF circle((width() - side) / 2, (height() - side) / 2, side, side);
    painter->setPen(QPen(QColor::fromRgbF(1, 1, 1, static_cast<float>(trackOpacity)), lineWidth_));
    painter->drawEllipse(circle);
    if (fraction() <= 0) return;
    painter->setPen(QPen(colour(), lineWidth_, Qt::SolidLine, Qt::RoundCap));
    painter->drawArc(circle, fullCircle / 4, -static_cast<int>(fullCircle * fraction()));
}

}  // namespace tavrel
