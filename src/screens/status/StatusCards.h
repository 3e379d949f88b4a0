#pragma once

#include "models/program/AppState.h"
#include "models/status/Monitor.h"
#include "monitoring/StatusTexts.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariantList>
#include <qqmlregistration.h>

namespace tavrel {

/// One card as a screen shows it.
struct CardData {
    Q_GADGET
    QML_VALUE_TYPE(cardData)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(QString unit MEMBER unit)
    Q_PROPERTY(QString footer MEMBER footer)
    Q_PROPERTY(QString chip MEMBER chip)
    Q_PROPERTY(double share MEMBER share)
    Q_PROPERTY(QList<double> history MEMBER history)

  public:
    QString title;
    QString value;
    QString unit;
    QString footer;
    QString chip;
    double share = 0;  // of a meter, 0 to 1
    QList<double> history;
};

/// What the cards of the status screen say, as the monitor goes on and somebody watches it.
class StatusCards : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tavrel::AppState* app READ app WRITE setApp NOTIFY appChanged)
    Q_PROPERTY(int health READ health NOTIFY changed)
    Q_PROPERTY(Grade grade READ grade NOTIFY changed)
    Q_PROPERTY(QString gradeText READ gradeText NOTIFY changed)
    Q_PROPERTY(QString machine READ machine NOTIFY changed)
    Q_PROPERTY(tavrel::CardData cpu READ cpu NOTIFY changed)
    Q_PROPERTY(tavrel::CardData gpu READ gpu NOTIFY changed)
    Q_PROPERTY(tavrel::CardData memory READ memory NOTIFY changed)
    Q_PROPERTY(tavrel::CardData disk READ disk NOTIFY changed)
    Q_PROPERTY(bool diskNearlyFull READ diskNearlyFull NOTIFY changed)
    Q_PROPERTY(tavrel::CardData network READ network NOTIFY changed)
    Q_PROPERTY(tavrel::CardData thermal READ thermal NOTIFY changed)
    Q_PROPERTY(bool hasBattery READ hasBattery NOTIFY changed)
    Q_PROPERTY(tavrel::CardData battery READ battery NOTIFY changed)
    Q_PROPERTY(bool charging READ isCharging NOTIFY changed)
    Q_PROPERTY(QVariantList accessories READ accessories NOTIFY accessoriesChanged)
    Q_PROPERTY(tavrel::CardData fans READ fans NOTIFY changed)
    Q_PROPERTY(QString fanDetail READ fanDetail NOTIFY changed)

  public:
    enum class Grade { Excellent, Good, NeedsCare };
    Q_ENUM(Grade)

    using QObject::QObject;

    [[nodiscard]] AppState* app() const { return app_; }
    void setApp(AppState* app);

    [[nodiscard]] int health() const;
    [[nodiscard]] Grade grade() const;
    [[nodiscard]] QString gradeText() const;
    [[nodiscard]] QString machine() const;
    [[nodiscard]] CardData cpu() const;
    [[nodiscard]] CardData gpu() const;
    [[nodiscard]] CardData memory() const;
    [[nodiscard]] CardData disk() const;
    [[nodiscard]] bool diskNearlyFull() const;
    [[nodiscard]] CardData network() const;
    [[nodiscard]] CardData thermal() const;
    [[nodiscard]] bool hasBattery() const;
    /// The value is the charge in percent, the unit its state, the footer its wear.
    [[nodiscard]] CardData battery() const;
    [[nodiscard]] bool isCharging() const;
    /// Objects of `name`, `symbol` and `percent`.
    [[nodiscard]] const QVariantList& accessories() const { return accessories_; }
    /// The footer says the share of the highest speed.
    [[nodiscard]] CardData fans() const;
    [[nodiscard]] QString fanDetail() const;

  Q_SIGNALS:
    void appChanged();
    void changed();
    void accessoriesChanged();

  private:
    void refresh();
    [[nodiscard]] const MachineFigures& figures() const;
    [[nodiscard]] MachineWords words() const;
    [[nodiscard]] StatusTexts::FanCard fanCard() const;

    QPointer<AppState> app_;
    QVariantList accessories_;
};

}  // namespace tavrel
