#include "app/ReducedMotion.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace tavrel {

namespace {

// The interface org.freedesktop.portal.Settings of the desktop portals.
const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString group = QStringLiteral("org.gnome.desktop.interface");
const QString key = QStringLiteral("enable-animations");

/// The value may be wrapped twice, as the older call gives it.
bool isTrue(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value.toBool();
}

}  // namespace

ReducedMotion::ReducedMotion(QDBusConnection bus, std::function<void(bool reduced)> told)
    : bus_(std::move(bus)), told_(std::move(told)) {
    if (!bus_.isConnected()) return;
    bus_.connect(service, object, interface, QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

void ReducedMotion::ask() {
    QDBusMessage call = QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("Read"));
    call << group << key;
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (!reply.isError()) told_(!isTrue(reply.value().variant()));
        watcher->deleteLater();
    });
}

void ReducedMotion::settingChanged(const QString& changedGroup, const QString& changedKey,
                                   const QDBusVariant& value) {
    if (changedGroup == group && changedKey == key) told_(!isTrue(value.variant()));
}

}  // namespace tavrel
