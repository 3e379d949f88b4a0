#include "platform/linux/HwmonTemperatures.h"

#include "core/Files.h"
#include "platform/linux/Hwmon.h"

#include <utility>

namespace tavrel {
namespace {

using Path = std::filesystem::path;

constexpr int readingsBetweenFinds = 30;

// Readings at or beyond these come from sensors that are not connected.
constexpr double lowest = 5.0;
constexpr double highest = 130.0;

struct ChipRow {
    std::string_view name;
    HwmonTemperatures::Labels labels;
};

/// Best first: the first that is there is the one to use.
constexpr ChipRow cpuChips[] = {
    {"coretemp", {"Package id ", "Core "}},
    {"k10temp", {"Tdie", "Tctl"}},
    {"zenpower", {"Tdie", "Tctl"}},
    {"cpu_thermal", {}},
    {"soc_thermal", {}},
};
/// Every one that is there.
constexpr ChipRow gpuChips[] = {
    {"amdgpu", {"edge"}}, {"radeon", {}}, {"nouveau", {}}, {"i915", {"pkg"}}, {"xe", {"pkg"}},
};

constexpr std::string_view cpuZones[] = {"x86_pkg_temp", "cpu-thermal", "soc-thermal"};
/// Some place of the board, often near the processors.
constexpr ChipRow lastResort = {"acpitz", {}};

/// The sensors of a chip whose labels begin with the first of `labels` that any has.
std::vector<FileHandle> sensorsOf(const Path& folder, const HwmonTemperatures::Labels& labels) {
    std::vector<std::pair<std::string, int>> all;
    for (const int number : Hwmon::inputs(folder, "temp")) {
        all.emplace_back(Hwmon::text(Hwmon::open(Hwmon::file(folder, "temp", number, "_label"))), number);
    }
    std::vector<FileHandle> found;
    for (const std::string_view wanted : labels) {
        for (const auto& [label, number] : all) {
            if (!label.starts_with(wanted)) continue;
            FileHandle input = Hwmon::open(Hwmon::file(folder, "temp", number, "_input"));
            if (input) found.push_back(std::move(input));
        }
        if (!found.empty()) break;
    }
    return found;
}

std::vector<FileHandle> zonesOf(const Path& sysRoot, std::string_view type) {
    const Path all = sysRoot / "class/thermal";
    std::vector<FileHandle> found;
    for (const std::string& zone : Files::names(all)) {
        if (Hwmon::text(Hwmon::open(all / zone / "type")) != type) continue;
        FileHandle temperature = Hwmon::open(all / zone / "temp");
        if (temperature) found.push_back(std::move(temperature));
    }
    return found;
}

}  // namespace

HwmonTemperatures::HwmonTemperatures(Path sysRoot) : sysRoot_(std::move(sysRoot)) {
    findSources();
}

void HwmonTemperatures::findSources() {
    cpu_.clear();
    gpu_.clear();
    const std::vector<Hwmon::Chip> chips = Hwmon::chips(sysRoot_);
    const auto add = [&](std::vector<Source>& sources, const ChipRow& row) {
        for (const Hwmon::Chip& chip : chips) {
            if (chip.name == row.name)
                sources.push_back({chip.folder, row.labels, Hwmon::powerState(chip.folder), {}});
        }
    };
    for (const ChipRow& row : gpuChips) add(gpu_, row);
    for (const ChipRow& row : cpuChips) {
        if (!cpu_.empty()) break;
        add(cpu_, row);
        std::erase_if(cpu_, [](Source& source) { return awake(source) && source.sensors.empty(); });
    }
    for (const std::string_view type : cpuZones) {
        if (!cpu_.empty()) break;
        std::vector<FileHandle> zones = zonesOf(sysRoot_, type);
        if (!zones.empty()) cpu_.push_back({.sensors = std::move(zones), .found = true});
    }
    if (cpu_.empty()) add(cpu_, lastResort);
}

Temperatures HwmonTemperatures::read() {
    if (readingsUntilFind_ > 0) --readingsUntilFind_;
    if (lost_ && readingsUntilFind_ == 0) {
        lost_ = false;
        readingsUntilFind_ = readingsBetweenFinds;
        findSources();
    }
    return {.cpu = mean(cpu_), .gpu = mean(gpu_)};
}

bool HwmonTemperatures::awake(Source& source) {
    if (Hwmon::sleeps(source.powerState)) return false;
    if (!source.found) {
        source.found = true;
        source.sensors = sensorsOf(source.folder, source.labels);
    }
    return true;
}

std::optional<double> HwmonTemperatures::mean(std::vector<Source>& sources) {
    double sum = 0;
    int count = 0;
    for (Source& source : sources) {
        if (!awake(source)) continue;
        for (const FileHandle& sensor : source.sensors) {
            const auto thousandths = Hwmon::number(sensor);
            if (!thousandths) lost_ = true;
            const double celsius = static_cast<double>(thousandths.value_or(0)) / 1000;
            if (celsius <= lowest || celsius >= highest) continue;
            sum += celsius;
            ++count;
        }
    }
    if (count == 0) return std::nullopt;
    return sum / count;
}

}  // namespace tavrel
