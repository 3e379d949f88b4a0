#pragma once

#include "presentation/Spring.h"

#include <map>
#include <string>
#include <string_view>

namespace tavrel {

/// How far each arc has come on its way into or out of the focus, so that nothing jumps as that moves.
class OrbitLights {
  public:
    /// Both from 0 to 1.
    struct Light {
        double emphasis = 0;
        double dim = 0;
    };

    [[nodiscard]] Light of(std::string_view id) const;

    /// `dt` seconds on the way to where the arc `focus` is lit and every other one dimmed; without a focus
    /// all are as bright as usual. Whether anything still moves.
    bool step(const std::string& focus, double dt);
    /// The end of that way at once.
    void settle(const std::string& focus);

  private:
    std::map<std::string, SprungValue, std::less<>> emphasis_;  // of the arcs that are lit or fade out
    SprungValue attention_;                                     // whether there is a focus at all
};

}  // namespace tavrel
