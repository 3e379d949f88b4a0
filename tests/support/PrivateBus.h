#pragma once

#include "support/Sandbox.h"

#include <string>
#include <sys/types.h>

namespace tavrel::testing {

/// A message bus of a test's own: the real daemon over a socket, called "bus", in a temporary folder.
class PrivateBus {
  public:
    /// A call to `startableService` leaves the file `started()` behind.
    explicit PrivateBus(const std::string& startableService = "test.nothing");
    ~PrivateBus() { stop(); }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] std::string address() const;
    [[nodiscard]] const std::filesystem::path& folder() const { return sandbox_.root(); }
    [[nodiscard]] std::filesystem::path started() const { return sandbox_.path("started"); }

    /// Ends the bus, and with it every connection.
    void stop();

  private:
    Sandbox sandbox_;
    pid_t daemon_ = -1;
};

}  // namespace tavrel::testing
