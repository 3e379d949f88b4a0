#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

class QDBusPendingCallWatcher;

namespace tavrel {

/// Whether the desktop has a place that shows status items, by the StatusNotifierItem protocol: a watcher on
/// the session bus with a host registered. Desktops bring theirs up and take it down at any time. Nothing
/// here waits; the first answer comes by `changed`.
class TrayHost final : public QObject {
    Q_OBJECT

  public:
    explicit TrayHost(QDBusConnection bus, QObject* parent = nullptr);

    [[nodiscard]] bool isPresent() const { return present_; }

  Q_SIGNALS:
    void changed(bool present);

  private Q_SLOTS:
    void ask();
    void setAbsent();

  private:
    void answered(QDBusPendingCallWatcher* call);
    void set(bool present);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    QDBusPendingCallWatcher* pending_ = nullptr;  // only the latest question counts
    bool present_ = false;
};

}  // namespace tavrel
