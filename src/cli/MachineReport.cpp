#include "cli/MachineReport.h"

#include "cli/CardTable.h"
#include "cli/Columns.h"
#include "core/ByteCount.h"
#include "core/Decimal.h"
#include "core/Text.h"
#include "monitoring/Cards.h"
#include "monitoring/HealthScore.h"
#include "monitoring/Processes.h"

#include <algorithm>
#include <array>

#include <nlohmann/json.hpp>

namespace tavrel::cli::MachineReport {

namespace {

using Json::Value;
using Text::localized;

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

/// Names on the left, figures on the right, under their headings.
class ProcessTable {
  public:
    explicit ProcessTable(std::size_t width) {
        constexpr std::array<std::size_t, 3> least = {9, 12, 9};
        std::size_t figures = 0;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            columns_.at(i) = std::max(least.at(i), Text::columns(headings_.at(i)) + 1);
            figures += columns_.at(i);
        }
        nameColumns_ = std::clamp<std::size_t>(width - std::min(width, figures), 8, 40);
        add(localized("Process"), headings_);
    }

    void add(const std::string& name, const std::array<std::string, 3>& figures) {
        std::string line = Columns::left(Text::elided(name, nameColumns_), nameColumns_);
        for (std::size_t i = 0; i < figures.size(); ++i)
            line += Columns::right(figures.at(i), columns_.at(i));
        lines.push_back(line);
    }

    std::vector<std::string> lines;

  private:
    const std::array<std::string, 3> headings_ = {localized("CPU"), localized("Memory"), localized("Impact")};
    std::array<std::size_t, 3> columns_{};
    std::size_t nameColumns_ = 0;
};

}  // namespace

Value document(const MachineFigures& figures) {
    return {
        {"healthScore", healthScore(figures)},
        {"chip", figures.chip.empty() ? Value(nullptr) : Value(Text::replaceInvalidUtf8(figures.chip))},
        {"cores", figures.cores},
        {"gpuCores", orNull(figures.gpuCores)},
        {"cpu", orNull(figures.cpu)},
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
        {"connection",
         figures.connection ? Value(Text::replaceInvalidUtf8(*figures.connection)) : Value(nullptr)},
        {"battery", battery(figures.battery)},
        {"accessories",
         list(figures.accessories,
              [](const auto& accessory) -> Value {
                  return {{"name", Text::replaceInvalidUtf8(accessory.name)}, {"percent", accessory.percent}};
              })},
        {"fans", list(figures.fans,
                      [](const Fan& fan) -> Value {
                          return {{"rpm", fan.rpm}, {"max", fan.max > 0 ? Value(fan.max) : Value(nullptr)}};
                      })},
        {"fanControlAvailable", figures.fanControlAvailable},
        {"processes", list(figures.processes,
                           [](const ProcessInfo& process) -> Value {
                               return {{"pid", process.pid},
                                       {"name", Text::replaceInvalidUtf8(process.name)},
                                       {"cpu", process.cpu},
                                       {"memory", process.memory},
                                       {"power", process.power}};
                           })},
    };
}

std::vector<std::string> lines(const Console& console, const MachineFigures& figures,
                               const PlatformTexts& texts, std::span<const std::string> pinned) {
    std::vector<std::string> all = tableOf(console, statusCards(figures, texts));
    const auto processes = processRows(figures.processes, ProcessSort::cpu, pinned);
    if (processes.empty()) return all;
    ProcessTable table(console.width());
    for (const ProcessInfo& process : processes) {
        table.add(Text::escapedForDisplay(process.name),
                  {oneDecimal(process.cpu) + "%", byteCount(process.memory), oneDecimal(process.power)});
    }
    all.emplace_back();
    all.insert(all.end(), table.lines.begin(), table.lines.end());
    return all;
}

}  // namespace tavrel::cli::MachineReport
