#pragma once

#include "disk/OrbitLayout.h"

#include <QColor>
#include <QObject>
#include <qqmlregistration.h>

namespace tavrel {

/// The colours of the arcs, for what stands beside the chart.
class OrbitPalette : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

  public:
    using QObject::QObject;

    [[nodiscard]] static QColor of(const OrbitColour& colour) {
        return QColor::fromRgbF(static_cast<float>(colour.red), static_cast<float>(colour.green),
                                static_cast<float>(colour.blue));
    }
    /// Of the entry with that place among the coloured ones; -1 for one that is in the lump.
    [[nodiscard]] Q_INVOKABLE static QColor colour(int index) {
        if (index < 0) return of(OrbitChart::lumpColour);
        return of(OrbitChart::palette.at(static_cast<std::size_t>(index) % OrbitChart::palette.size()));
    }
};

}  // namespace tavrel
