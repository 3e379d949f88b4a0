#include "platform/linux/hwmon/HwmonTemperatures.h"

#include "core/Files.h"
#include "platform/linux/hwmon/Hwmon.h"
#include "platform/linux/kernel/Attributes.h"

#include <utility>

namespace tavrel {
namespace {

using Path = std::filesystem::path;

constexpr int readingsBetweenFinds = 30;

// Readings at or beyond these come from sensors that are not connected.
constexpr double lowest = 5.0;
constexpr double highest = 130.0;

/// The sensors of a chip whose labels begin with the first of `labels` that any has.
std::vector<FileHandle> sensorsOf(const Path& folder, const HeatSources::Labels& labels) {
    std::vector<std::pair<std::string, int>> all;
    for (const int number : Hwmon::inputs(folder, "temp")) {
        const auto label = Attributes::text(Hwmon::file(folder, "temp", number, "_label"));
        all.emplace_back(label.value_or(""), number);
    }
    std::vector<FileHandle> found;
    for (const std::string_view wanted : labels) {
        for (const auto& [label, number] : all) {
            if (!label.starts_with(wanted)) continue;
            FileHandle input = Attributes::open(Hwmon::file(folder, "temp", number, "_input"));
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
        if (!Attributes::text(all / zone / "type").value_or("").starts_with(type)) continue;
        FileHandle temperature = Attributes::open(all / zone / "temp");
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
    const auto add = [&](std::vector<Source>& sources, const HeatSources::Chip& row) {
        for (const Hwmon::Chip& chip : chips) {
            if (chip.name.starts_with(row.name))
                sources.push_back({chip.folder, row.labels, Hwmon::powerState(chip.folder), {}});
        }
    };
    for (const HeatSources::Chip& row : HeatSources::graphics) add(gpu_, row);
    for (const HeatSources::Chip& row : HeatSources::processors) {
        if (!cpu_.empty()) break;
        add(cpu_, row);
        std::erase_if(cpu_, [](Source& source) { return awake(source) && source.sensors.empty(); });
    }
    for (const std::string_view type : HeatSources::processorZones) {
        if (!cpu_.empty()) break;
        std::vector<FileHandle> zones = zonesOf(sysRoot_, type);
        if (!zones.empty()) cpu_.push_back({.sensors = std::move(zones), .found = true});
    }
    if (cpu_.empty()) add(cpu_, HeatSources::lastResort);
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
            const auto thousandths = Attributes::number(sensor);
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
