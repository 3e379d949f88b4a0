#pragma once

#include "platform/macos/HidTemperatureSensors.h"

#include <utility>

namespace tavrel {

/// Plays the temperature sensors of a Mac: names are those of the start, levels may change.
class SimulatedTemperatureSensors final : public HidTemperatureSensors {
  public:
    using Level = std::optional<double>;

    explicit SimulatedTemperatureSensors(const std::vector<std::pair<std::string, Level>>& sensors) {
        for (const auto& [name, level] : sensors) {
            names_.push_back(name);
            levels.push_back(level);
        }
    }

    [[nodiscard]] const std::vector<std::string>& names() const override { return names_; }
    [[nodiscard]] Level level(std::size_t index) override { return levels.at(index); }

    std::vector<Level> levels;  // one a name

  private:
    std::vector<std::string> names_;
};

}  // namespace tavrel
