#include "app/TrayHost.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <utility>

namespace tavrel {

namespace {

const auto service = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto objectPath = QStringLiteral("/StatusNotifierWatcher");
const auto& interface = service;

}  // namespace

TrayHost::TrayHost(QDBusConnection bus, QObject* parent) : QObject(parent), bus_(std::move(bus)) {
    if (!bus_.isConnected()) return;
    watcher_.setConnection(bus_);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    watcher_.addWatchedService(service);
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &TrayHost::ask);
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, &TrayHost::setAbsent);
    // From any sender: naming one would have the connection look up its owner and wait.
    for (const QString& signal :
         {QStringLiteral("StatusNotifierHostRegistered"), QStringLiteral("StatusNotifierHostUnregistered")}) {
        bus_.connect({}, objectPath, interface, signal, this, SLOT(ask()));
    }
    bus_.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                 SLOT(setAbsent()));
    ask();
}

void TrayHost::ask() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, objectPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << interface << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    pending_ = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(pending_, &QDBusPendingCallWatcher::finished, this, &TrayHost::answered);
}

void TrayHost::answered(QDBusPendingCallWatcher* call) {
    call->deleteLater();
    if (call != pending_) return;
    pending_ = nullptr;
    const QDBusPendingReply<QDBusVariant> reply = *call;
    set(reply.isValid() && reply.value().variant().toBool());
}

void TrayHost::setAbsent() {
    pending_ = nullptr;
    set(false);
}

void TrayHost::set(bool present) {
    if (std::exchange(present_, present) != present) Q_EMIT changed(present);
}

}  // namespace tavrel
