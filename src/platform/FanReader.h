#pragma once

#include <vector>

namespace tavrel {

/// Revolutions per minute, now and at most; `max` is 0 where the machine does not report it.
struct Fan {
    double rpm = 0;
    double max = 0;

    bool operator==(const Fan&) const = default;
};

class FanReader {
  public:
    virtual ~FanReader() = default;
    /// One entry for each fan that can be read, in the machine's order.
    [[nodiscard]] virtual std::vector<Fan> read() = 0;
    /// Whether every fan shows what a change of its mode needs.
    [[nodiscard]] virtual bool isControllable() = 0;
};

}  // namespace tavrel
