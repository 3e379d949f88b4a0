#pragma once

#include "platform/LaunchAtLogin.h"

#include <QObject>

namespace tavrel {

/// Whether the program opens at login, for a switch: after a change that failed it stands where the system
/// stands.
class LoginItem final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)

  public:
    explicit LoginItem(LaunchAtLogin& system, QObject* parent = nullptr) : QObject(parent), system_(system) {}

    [[nodiscard]] bool isEnabled() const { return system_.isEnabled(); }
    void setEnabled(bool on) {
        system_.set(on);
        Q_EMIT enabledChanged();
    }

  Q_SIGNALS:
    void enabledChanged();

  private:
    LaunchAtLogin& system_;
};

}  // namespace tavrel
