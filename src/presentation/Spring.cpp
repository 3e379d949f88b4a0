#include "presentation/Spring.h"

#include <cmath>
#include <numbers>

namespace tavrel {

double Spring::at(double age) const {
    SprungValue value;
    value.step(1, age, *this);
    return value.value;
}

void SprungValue::step(double target, double dt, const Spring& spring) {
    if (dt <= 0) return;
    const double frequency = 2 * std::numbers::pi / spring.response;
    const double away = value - target;
    const double fade = std::exp(-spring.damping * frequency * dt);
    if (spring.damping >= 1) {  // critical: the slowest that does not swing
        const double push = velocity + frequency * away;
        value = target + (away + push * dt) * fade;
        velocity = (velocity - frequency * push * dt) * fade;
        return;
    }
    const double swing = frequency * std::sqrt(1 - spring.damping * spring.damping);
    const double sine = std::sin(swing * dt) / swing;
    const double cosine = std::cos(swing * dt);
    const double drag = spring.damping * frequency;
    value = target + fade * (away * cosine + (velocity + drag * away) * sine);
    velocity = fade * (velocity * cosine - (frequency * frequency * away + drag * velocity) * sine);
}

}  // namespace tavrel
