#include "models/status/MonitorWatcher.h"

#include <utility>

namespace tavrel {

MonitorWatcher::~MonitorWatcher() {
    watch(nullptr);
}

void MonitorWatcher::setMonitor(Monitor* monitor) {
    if (monitor_ == monitor) return;
    monitor_ = monitor;
    watch(active_ ? monitor : nullptr);
    Q_EMIT monitorChanged();
}

void MonitorWatcher::setActive(bool active) {
    if (std::exchange(active_, active) == active) return;
    watch(active ? monitor_ : nullptr);
    Q_EMIT activeChanged();
}

void MonitorWatcher::watch(Monitor* monitor) {
    if (watched_ == monitor) return;
    if (watched_) watched_->addWatchers(-1);
    watched_ = monitor;
    if (watched_) watched_->addWatchers(1);
}

}  // namespace tavrel
