#include "app/PrivateBus.h"

#include <stdexcept>

namespace tavrel::testing {

PrivateBus::PrivateBus()
    : address_(QStringLiteral("unix:path=") + QString::fromStdString(sandbox_.path("bus").native())) {
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                   QStringLiteral("--nosyslog"), QStringLiteral("--print-address"),
                   QStringLiteral("--address=") + address_});
    // The address is printed once it is listened at.
    if (!daemon_.waitForReadyRead(10'000)) throw std::runtime_error("no message bus can be started");
}

PrivateBus::~PrivateBus() {
    stop();
}

QString PrivateBus::folder() const {
    return QString::fromStdString(sandbox_.root().native());
}

QDBusConnection PrivateBus::connect() const {
    static int count = 0;
    return QDBusConnection::connectToBus(address_, QStringLiteral("test-%1").arg(++count));
}

void PrivateBus::stop() {
    daemon_.kill();
    daemon_.waitForFinished();
}

}  // namespace tavrel::testing
