#pragma once

#include "monitoring/MachineFigures.h"
#include "monitoring/PlatformTexts.h"

#include <string>
#include <variant>
#include <vector>

namespace tavrel {

/// One figure of the machine as the window and the command line show it. Texts are in the user's language;
/// titles and chips may hold names of devices, unescaped.
struct Card {
    enum class Kind { health, cpu, gpu, memory, disk, network, thermal, battery, accessory, fans };
    enum class State { normal, elevated, critical };

    /// A meter of one share, or a line through shares, the oldest first. Shares are 0 to 1.
    using Graph = std::variant<double, std::vector<double>>;

    Kind kind = Kind::health;
    std::string symbol;  // name of the icon
    std::string title;
    std::string chip;   // a short status or name
    std::string value;  // "—" for an unknown figure
    std::string unit;
    std::string footer;  // the line below the value
    std::string detail;  // a further line; only of the fans
    State state = State::normal;
    Graph graph = 0.0;

    bool operator==(const Card&) const = default;
};

/// Returns the cards in display order: one of each kind, but no battery card without a battery, and one
/// accessory card for each accessory. `texts` are those of the system that `figures` were read on.
[[nodiscard]] std::vector<Card> statusCards(const MachineFigures& figures, const PlatformTexts& texts);

}  // namespace tavrel
