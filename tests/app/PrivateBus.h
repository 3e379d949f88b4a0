#pragma once

#include "support/Sandbox.h"

#include <QDBusConnection>
#include <QProcess>
#include <QString>

namespace tavrel::testing {

/// A real message bus of the test's own.
class PrivateBus {
  public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] const QString& address() const { return address_; }
    /// The folder with the bus's socket, which is called "bus".
    [[nodiscard]] QString folder() const;

    /// A connection that no other shares.
    [[nodiscard]] QDBusConnection connect() const;

    /// Ends the bus, and with it every connection.
    void stop();

  private:
    Sandbox sandbox_;
    QString address_;
    QProcess daemon_;
};

}  // namespace tavrel::testing
