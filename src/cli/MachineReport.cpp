#include "cli/MachineReport.h"

#include "core/ByteCount.h"
#include "core/Text.h"
#include "monitoring/HealthScore.h"
#include "monitoring/Processes.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace tavrel::cli::MachineReport {

namespace {

using Json::Value;
using Text::localized;

constexpr std::size_t titleColumns = 10;
constexpr std::size_t valueColumns = 22;
constexpr std::size_t graphColumns = 24;

template <typename Figure>
Value orNull(const std::optional<Figure>& figure) {
    return figure ? Value(*figure) : Value(nullptr);
}

Value battery(const std::optional<Sensors::Battery>& battery) {
    if (!battery) return nullptr;
    return {
        {"percent", battery->percent},
        {"charging", battery->charging},
        {"pluggedIn", battery->pluggedIn},
        {"minutesLeft", orNull(battery->minutesLeft)},
        {"cycles", orNull(battery->cycles)},
        {"health", orNull(battery->health)},
        {"adapterWatts", orNull(battery->adapterWatts)},
        {"temperature", orNull(battery->temperature)},
    };
}

Value thermalState(const std::optional<Sensors::ThermalState>& state) {
    constexpr std::array names = {"nominal", "fair", "serious", "critical"};
    return state ? Value(names.at(static_cast<std::size_t>(*state))) : Value(nullptr);
}

template <typename Row, typename Object>
Value list(const std::vector<Row>& rows, Object object) {
    Value all = Value::array();
    for (const Row& row : rows) all.push_back(object(row));
    return all;
}

/// The last values of a history, a column each.
std::string sparkline(const std::vector<double>& history, double full = 1) {
    constexpr std::array levels = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    const std::size_t count = std::min(history.size(), graphColumns);
    std::string line(graphColumns - count, ' ');
    for (std::size_t i = history.size() - count; i < history.size(); ++i) {
        const double share = std::clamp(history[i] / full, 0.0, 1.0);
        line += levels.at(static_cast<std::size_t>(std::lround(share * (levels.size() - 1))));
    }
    return line;
}

std::string meter(double share) {
    const auto filled = static_cast<std::size_t>(std::lround(std::clamp(share, 0.0, 1.0) * graphColumns));
    std::string line;
    for (std::size_t i = 0; i < graphColumns; ++i) line += i < filled ? "█" : "░";
    return line;
}

std::string padded(const std::string& text, std::size_t columns) {
    const std::size_t width = Text::columns(text);
    return width >= columns ? text : text + std::string(columns - width, ' ');
}

class Lines {
  public:
    explicit Lines(const Console& console) : console_(console) {}

    void card(const StatusTexts::MetricCard& card, const std::string& graph) {
        const std::string value = card.value + " " + card.unit;
        all.push_back(console_.styled(Console::Style::dim, padded(card.title, titleColumns)) +
                      console_.styled(Console::Style::strong, padded(value, valueColumns)) +
                      console_.styled(Console::Style::mark, graph) + "  " +
                      fitted(card.chip.empty() ? card.footer : card.footer + " · " + card.chip));
    }
    void process(const std::string& name, const std::string& cpu, const std::string& memory,
                 const std::string& power) {
        all.push_back(fmt::format("{}{:>9}{:>12}{:>9}", padded(Text::elided(name, nameColumns), nameColumns),
                                  cpu, memory, power));
    }

    std::vector<std::string> all;

  private:
    static constexpr std::size_t nameColumns = 40;

    [[nodiscard]] std::string fitted(const std::string& footer) const {
        constexpr std::size_t before = titleColumns + valueColumns + graphColumns + 2;
        return console_.fitted(footer, console_.width() > before + 10 ? console_.width() - before : 10);
    }

    const Console& console_;
};

std::string percent(double share) {
    return fmt::format("{:.1f}%", share);
}

}  // namespace

Value document(const MachineFigures& figures) {
    return {
        {"healthScore", healthScore(figures)},
        {"chip", Text::repaired(figures.chip)},
        {"cores", figures.cores},
        {"gpuCores", orNull(figures.gpuCores)},
        {"cpu", figures.cpu},
        {"load", orNull(figures.load)},
        {"gpu", orNull(figures.gpu)},
        {"cpuTemp", orNull(figures.cpuTemp)},
        {"gpuTemp", orNull(figures.gpuTemp)},
        {"thermalState", thermalState(figures.thermalState)},
        {"memory",
         {{"used", orNull(figures.memory.used)},
          {"total", orNull(figures.memory.total)},
          {"swap", orNull(figures.memory.swap)},
          {"pressure", orNull(figures.memory.pressure)}}},
        {"disk", {{"total", orNull(figures.disk.total)}, {"available", orNull(figures.disk.available)}}},
        {"diskRead", orNull(figures.diskRead)},
        {"diskWrite", orNull(figures.diskWrite)},
        {"download", orNull(figures.download)},
        {"upload", orNull(figures.upload)},
        {"connection", figures.connection ? Value(Text::repaired(*figures.connection)) : Value(nullptr)},
        {"battery", battery(figures.battery)},
        {"accessories",
         list(figures.accessories,
              [](const auto& accessory) -> Value {
                  return {{"name", Text::repaired(accessory.name)}, {"percent", accessory.percent}};
              })},
        {"fans", list(figures.fans,
                      [](const Fan& fan) -> Value {
                          return {{"rpm", fan.rpm}, {"max", fan.max}};
                      })},
        {"fanControlAvailable", figures.fanControlAvailable},
        {"processes", list(figures.processes,
                           [](const ProcessInfo& process) -> Value {
                               return {{"pid", process.pid},
                                       {"name", Text::repaired(process.name)},
                                       {"cpu", process.cpu},
                                       {"memory", process.memory},
                                       {"power", process.power}};
                           })},
    };
}

std::vector<std::string> lines(const Console& console, const MachineFigures& figures,
                               const MachineWords& words) {
    Lines lines(console);
    const int health = healthScore(figures);
    lines.card({localized("Health"), fmt::format("{}", health), StatusTexts::grade(health),
                Text::shown(figures.chip)},
               meter(health / 100.0));
    lines.card(StatusTexts::cpu(figures), sparkline(figures.cpuHistory));
    lines.card(StatusTexts::gpu(figures, words), sparkline(figures.gpuHistory));
    lines.card(StatusTexts::memory(figures), sparkline(figures.memoryHistory));
    lines.card(StatusTexts::disk(figures), meter(usedShare(figures.disk)));
    double peak = 1;
    for (const double value : figures.networkHistory) peak = std::max(peak, value);
    lines.card(StatusTexts::network(figures), sparkline(figures.networkHistory, peak));
    lines.card(StatusTexts::thermal(figures), meter(StatusTexts::heatShare(figures)));
    if (figures.battery) {
        const Sensors::Battery& battery = *figures.battery;
        lines.card({localized("Battery"), fmt::format("{}", battery.percent), "%",
                    StatusTexts::batteryState(battery)},
                   meter(static_cast<double>(battery.percent) / 100));
    }
    const StatusTexts::FanCard fans = StatusTexts::fans(figures, words);
    lines.card({fans.title, fans.speed, fans.unit, fans.detail.empty() ? fans.share : fans.detail},
               meter(fanLoad(figures.fans)));

    const auto processes = processRows(figures.processes, ProcessSort::cpu, {});
    if (processes.empty()) return lines.all;
    lines.all.emplace_back();
    lines.process(localized("Process"), localized("CPU"), localized("Memory"), localized("Impact"));
    for (const ProcessInfo& process : processes) {
        lines.process(Text::shown(process.name), percent(process.cpu), byteCount(process.memory),
                      fmt::format("{:.1f}", process.power));
    }
    return lines.all;
}

}  // namespace tavrel::cli::MachineReport
