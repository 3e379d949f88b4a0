#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <functional>

namespace tavrel {

/// Whether the user wants less motion on the screen, as the desktop's settings portal tells it. Asked without
/// waiting; without a bus or a portal nothing is ever told.
class ReducedMotion final : public QObject {
    Q_OBJECT

  public:
    ReducedMotion(QDBusConnection bus, std::function<void(bool reduced)> told);

  private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void ask();

    QDBusConnection bus_;
    std::function<void(bool)> told_;
};

}  // namespace tavrel
