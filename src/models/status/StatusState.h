#pragma once

#include "models/support/TabState.h"

namespace tavrel {

class Monitor;

/// The models of the Status tab.
class StatusState final : public TabState {
    Q_OBJECT
    Q_MOC_INCLUDE("models/status/Monitor.h")
    Q_PROPERTY(tavrel::Monitor* monitor READ monitor CONSTANT)

  public:
    /// `monitor` outlives this object.
    explicit StatusState(Monitor& monitor) : monitor_(monitor) {}

    [[nodiscard]] Monitor* monitor() { return &monitor_; }

  private:
    Monitor& monitor_;
};

}  // namespace tavrel
