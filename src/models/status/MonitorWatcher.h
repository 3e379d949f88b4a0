#pragma once

#include "models/status/Monitor.h"

#include <QObject>
#include <QPointer>

namespace tavrel {

/// Counts as one watcher of its monitor while it is active, and no longer than it exists. Screens declare one
/// in each view of live figures. The monitor may be destroyed first.
class MonitorWatcher : public QObject {
    Q_OBJECT
    Q_PROPERTY(tavrel::Monitor* monitor READ monitor WRITE setMonitor NOTIFY monitorChanged)
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)

  public:
    using QObject::QObject;
    ~MonitorWatcher() override;

    [[nodiscard]] Monitor* monitor() const { return monitor_; }
    void setMonitor(Monitor* monitor);
    /// True from the start.
    [[nodiscard]] bool isActive() const { return active_; }
    void setActive(bool active);

  Q_SIGNALS:
    void monitorChanged();
    void activeChanged();

  private:
    void watch(Monitor* monitor);

    QPointer<Monitor> monitor_;
    QPointer<Monitor> watched_;  // counts this watcher
    bool active_ = true;
};

}  // namespace tavrel
