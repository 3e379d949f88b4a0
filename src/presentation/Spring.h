#pragma once

namespace tavrel {

/// How something springs to where it belongs: `response` is the time of one swing without friction, in
/// seconds; `damping` is 1 where it just does not swing over, less where it does.
struct Spring {
    double response = 1;
    double damping = 1;

    /// How far the way from 0 to 1 has been made `age` seconds after the start from rest.
    [[nodiscard]] double at(double age) const;
};

/// A value on its way, which may be sent elsewhere at any moment without a jump.
struct SprungValue {
    double value = 0;
    double velocity = 0;  // a second

    /// `dt` seconds on the way to `target`, by the exact solution, so that the rate of frames does not
    /// matter.
    void step(double target, double dt, const Spring& spring);
};

}  // namespace tavrel
