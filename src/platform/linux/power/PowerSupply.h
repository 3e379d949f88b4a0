#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// One folder of /sys/class/power_supply, after the kernel's documentation of that class: battery or mains,
/// of this machine or of a device beside it.
struct PowerSupply {
    std::string name;
    std::map<std::string, std::string, std::less<>> attributes;  // those that could be read

    [[nodiscard]] std::string text(std::string_view attribute) const;
    [[nodiscard]] std::optional<double> number(std::string_view attribute) const;

    [[nodiscard]] bool isBattery() const { return text("type") == "Battery"; }
    /// Percent; a level in words counts as what it usually stands for.
    [[nodiscard]] std::optional<double> capacity() const;

    /// Of the machine itself, or of a mouse and the like. Devices may sleep, and to wait for their answers
    /// takes long: those of the machine are read without asking any.
    enum class Of { machine, devices };
    /// In ascending order of their names.
    [[nodiscard]] static std::vector<PowerSupply> readAll(const std::filesystem::path& sys, Of owner);
};

}  // namespace tavrel
