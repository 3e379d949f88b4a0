#pragma once

#include "platform/LaunchAtLogin.h"

namespace tavrel::testing {

/// A system that registers login items only while it is told to.
class FakeLogin final : public LaunchAtLogin {
  public:
    bool byLogin = false;
    bool works = true;
    int registrations = 0;

    [[nodiscard]] bool launchedAsLoginItem() const override { return byLogin; }
    [[nodiscard]] bool isEnabled() const override { return registrations > 0; }
    bool set(bool on) override {
        if (works) registrations += on ? 1 : -1;
        return works;
    }
};

}  // namespace tavrel::testing
