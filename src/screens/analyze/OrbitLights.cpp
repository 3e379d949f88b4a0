#include "screens/analyze/OrbitLights.h"

#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {

constexpr Spring spring = {.response = 0.35, .damping = 1};
constexpr double rest = 0.002;  // cannot be seen

/// Whether it is still on its way; where it is nearly there, it is put there.
bool advance(SprungValue& value, double target, double dt) {
    value.step(target, dt, spring);
    if (std::abs(value.value - target) > rest || std::abs(value.velocity) > rest) return true;
    value = {.value = target};
    return false;
}

}  // namespace

OrbitLights::Light OrbitLights::of(std::string_view id) const {
    const auto found = emphasis_.find(id);
    const double emphasis = found == emphasis_.end() ? 0 : found->second.value;
    return {.emphasis = emphasis, .dim = std::max(attention_.value - emphasis, 0.0)};
}

bool OrbitLights::step(const std::string& focus, double dt) {
    if (!focus.empty()) emphasis_.try_emplace(focus);
    bool moves = advance(attention_, focus.empty() ? 0 : 1, dt);
    for (auto& [id, value] : emphasis_) moves |= advance(value, id == focus ? 1 : 0, dt);
    std::erase_if(emphasis_, [&](const auto& each) { return each.first != focus && each.second.value == 0; });
    return moves;
}

void OrbitLights::settle(const std::string& focus) {
    emphasis_.clear();
    if (!focus.empty()) emphasis_[focus] = {.value = 1};
    attention_ = {.value = focus.empty() ? 0.0 : 1.0};
}

}  // namespace tavrel
