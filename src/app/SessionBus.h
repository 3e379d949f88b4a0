#pragma once

#include <QDBusConnection>

namespace tavrel::SessionBus {

/// The user's session bus, or a connection that is not connected where there is none. A bus is never started
/// for the purpose. Needs the application object; returns at once.
[[nodiscard]] QDBusConnection connect();

}  // namespace tavrel::SessionBus
