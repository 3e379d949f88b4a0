#pragma once

#include "models/clean/CleanListModel.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <qqmlregistration.h>

namespace tavrel {

/// What the middle of a clean screen says, and how far the hole stands open, for one list.
class CleanHero : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tavrel::CleanListModel* model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(QString idleTitle MEMBER idleTitle_ NOTIFY changed)
    Q_PROPERTY(QString idleSubtitle MEMBER idleSubtitle_ NOTIFY changed)
    Q_PROPERTY(bool resealed MEMBER resealed_ NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(double irisOpening READ irisOpening NOTIFY changed)

  public:
    using QObject::QObject;

    [[nodiscard]] CleanListModel* model() const { return model_; }
    void setModel(CleanListModel* model);

    [[nodiscard]] QString title() const;
    [[nodiscard]] QString subtitle() const;
    /// From 0, closed, to 1.
    [[nodiscard]] double irisOpening() const;

  Q_SIGNALS:
    void modelChanged();
    void changed();

  private:
    void watchFeed();
    [[nodiscard]] CleanTexts::Idle idle() const;

    QPointer<CleanListModel> model_;
    QPointer<SwallowFeed> feed_;
    QString idleTitle_;
    QString idleSubtitle_;
    bool resealed_ = true;
};

}  // namespace tavrel
