#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <functional>

namespace tavrel {

/// Reports whether the user wants less motion on the screen, from the desktop's settings portal. Calls never
/// block. Without a bus or a portal `told` is never called.
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
