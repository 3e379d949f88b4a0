#pragma once

#include "models/status/Monitor.h"
#include "monitoring/Cards.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariantList>
#include <qqmlregistration.h>
#include <vector>

namespace tavrel {

/// A `Card` as a value of QML. All texts are empty where there is no such card.
struct CardData {
    Q_GADGET
    QML_VALUE_TYPE(cardData)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString chip MEMBER chip)
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(QString unit MEMBER unit)
    Q_PROPERTY(QString footer MEMBER footer)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(int state MEMBER state)
    Q_PROPERTY(double share MEMBER share)
    Q_PROPERTY(QList<double> history MEMBER history)

  public:
    QString symbol;
    QString title;
    QString chip;
    QString value;
    QString unit;
    QString footer;
    QString detail;
    int state = 0;          // of StatusCards::State
    double share = 0;       // for a meter, 0 to 1
    QList<double> history;  // for a line, 0 to 1

    bool operator==(const CardData&) const = default;
};

/// The status cards of a monitor by their kind, updated with each sample while the monitor is watched.
class StatusCards : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tavrel::Monitor* monitor READ monitor WRITE setMonitor NOTIFY monitorChanged)
    Q_PROPERTY(tavrel::CardData health READ health NOTIFY changed)
    Q_PROPERTY(tavrel::CardData cpu READ cpu NOTIFY changed)
    Q_PROPERTY(tavrel::CardData gpu READ gpu NOTIFY changed)
    Q_PROPERTY(tavrel::CardData memory READ memory NOTIFY changed)
    Q_PROPERTY(tavrel::CardData disk READ disk NOTIFY changed)
    Q_PROPERTY(tavrel::CardData network READ network NOTIFY changed)
    Q_PROPERTY(tavrel::CardData thermal READ thermal NOTIFY changed)
    Q_PROPERTY(bool hasBattery READ hasBattery NOTIFY changed)
    Q_PROPERTY(tavrel::CardData battery READ battery NOTIFY changed)
    Q_PROPERTY(tavrel::CardData fans READ fans NOTIFY changed)
    Q_PROPERTY(QVariantList accessories READ accessories NOTIFY accessoriesChanged)

  public:
    /// `Card::State` for QML.
    enum State { Normal, Elevated, Critical };
    Q_ENUM(State)

    using QObject::QObject;

    [[nodiscard]] Monitor* monitor() const { return monitor_; }
    void setMonitor(Monitor* monitor);

    [[nodiscard]] CardData health() const { return card(Card::Kind::health); }
    [[nodiscard]] CardData cpu() const { return card(Card::Kind::cpu); }
    [[nodiscard]] CardData gpu() const { return card(Card::Kind::gpu); }
    [[nodiscard]] CardData memory() const { return card(Card::Kind::memory); }
    [[nodiscard]] CardData disk() const { return card(Card::Kind::disk); }
    [[nodiscard]] CardData network() const { return card(Card::Kind::network); }
    [[nodiscard]] CardData thermal() const { return card(Card::Kind::thermal); }
    [[nodiscard]] bool hasBattery() const;
    [[nodiscard]] CardData battery() const { return card(Card::Kind::battery); }
    [[nodiscard]] CardData fans() const { return card(Card::Kind::fans); }
    /// One CardData for each accessory.
    [[nodiscard]] const QVariantList& accessories() const { return accessories_; }

  Q_SIGNALS:
    void monitorChanged();
    void changed();
    void accessoriesChanged();

  private:
    void refresh();
    /// The first card of that kind; an empty one if there is none.
    [[nodiscard]] CardData card(Card::Kind kind) const;

    QPointer<Monitor> monitor_;
    std::vector<Card> cards_;
    QVariantList accessories_;
};

}  // namespace tavrel
