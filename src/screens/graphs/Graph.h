#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

namespace tavrel {

/// A small picture of figures, painted anew only when they have changed.
class Graph : public QQuickPaintedItem {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QColor colour READ colour WRITE setColour NOTIFY colourChanged)

  public:
    explicit Graph(QQuickItem* parent = nullptr);

    [[nodiscard]] const QColor& colour() const { return colour_; }
    void setColour(const QColor& colour);

  Q_SIGNALS:
    void colourChanged();

  protected:
    /// The colour at an opacity.
    [[nodiscard]] QColor faded(double opacity) const;

  private:
    QColor colour_ = Qt::white;
};

/// A graph of one share, from 0 to 1.
class ShareGraph : public tavrel::Graph {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(double fraction READ fraction WRITE setFraction NOTIFY fractionChanged)

  public:
    using Graph::Graph;

    [[nodiscard]] double fraction() const { return fraction_; }
    /// What is no number counts as 0.
    void setFraction(double fraction);

  Q_SIGNALS:
    void fractionChanged();

  private:
    double fraction_ = 0;
};

/// A graph of a list of shares, from 0 to 1, oldest first.
class HistoryGraph : public tavrel::Graph {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QList<double> values READ values WRITE setValues NOTIFY valuesChanged)

  public:
    using Graph::Graph;

    [[nodiscard]] const QList<double>& values() const { return values_; }
    void setValues(const QList<double>& values);

  Q_SIGNALS:
    void valuesChanged();

  private:
    QList<double> values_;
};

}  // namespace tavrel
