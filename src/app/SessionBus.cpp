#include "app/SessionBus.h"

#include <QByteArray>
#include <QFileInfo>
#include <QString>

namespace tavrel::SessionBus {

namespace {

/// Without an address the bus library would start a bus of its own, and wait for it.
bool isAnnounced() {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty()) return !address.startsWith("autolaunch:");
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFileInfo::exists(folder + QStringLiteral("/bus"));
}

}  // namespace

QDBusConnection connect() {
    return isAnnounced() ? QDBusConnection::sessionBus()
                         : QDBusConnection(QStringLiteral("com.quennith.tavrel.none"));
}

}  // namespace tavrel::SessionBus
