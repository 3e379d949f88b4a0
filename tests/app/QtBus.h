#pragma once

#include "support/PrivateBus.h"

#include <QDBusConnection>
#include <QString>

namespace tavrel::testing {

/// A private bus in the types of Qt.
struct QtBus : PrivateBus {
    [[nodiscard]] QString address() const { return QString::fromStdString(PrivateBus::address()); }
    [[nodiscard]] QString folder() const { return QString::fromStdString(PrivateBus::folder().native()); }

    /// A connection that no other shares.
    [[nodiscard]] QDBusConnection connect() const {
        static int count = 0;
        return QDBusConnection::connectToBus(address(), QStringLiteral("test-%1").arg(++count));
    }
};

}  // namespace tavrel::testing
