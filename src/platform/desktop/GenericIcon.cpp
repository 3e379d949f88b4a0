#include "platform/desktop/GenericIcon.h"

#include <QColor>
#include <QImage>
#include <QPainter>

namespace tavrel {

QImage genericIcon(int side) {
    constexpr QColor paper(0xE8, 0xEC, 0xF2);
    constexpr QColor fold(0xB6, 0xC0, 0xCE);
    constexpr double left = 0.2;  // parts of the side
    constexpr double top = 0.08;
    constexpr double corner = 0.24;
    constexpr double right = 1 - left;
    constexpr double bottom = 1 - top;

    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(side, side);
    painter.setBrush(paper);
    const QPointF sheet[] = {
        {left, top}, {right - corner, top}, {right, top + corner}, {right, bottom}, {left, bottom}};
    painter.drawConvexPolygon(sheet, std::size(sheet));
    painter.setBrush(fold);
    const QPointF folded[] = {{right - corner, top}, {right, top + corner}, {right - corner, top + corner}};
    painter.drawConvexPolygon(folded, std::size(folded));
    return image;
}

}  // namespace tavrel
