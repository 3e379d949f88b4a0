#include "cli/AddCommand.h"
#include "cli/ExitStatus.h"
#include "cli/LiveScreen.h"
#include "cli/MachineReport.h"
#include "cli/Session.h"
#include "engine/Machine.h"
#include "monitoring/MachineSampler.h"

#include <chrono>
#include <thread>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Text::localized;

Instant uptime() {
    return Instant(std::chrono::steady_clock::now().time_since_epoch());
}

/// Between two readings, at the least, for a rate to mean something.
constexpr std::chrono::milliseconds shortest{250};

/// The machine under full observation. Reads that block are made at once: nobody else waits here. Looking at
/// the processes takes a second, so that more than the wait lies between the first two samples.
class Observation {
  public:
    explicit Observation(const Machine& machine)
        : machine_(machine), sampler_({*machine_.sensors, *machine_.temperatures, *machine_.fans}, uptime()) {
        static_cast<void>(sampler_.setWatchers(1));
    }

    [[nodiscard]] const MachineFigures& figures() const { return sampler_.figures(); }

    void sample() {
        const auto due = sampler_.sample(uptime());
        if (due.diskSpace) sampler_.setDiskSpace(machine_.sensors->diskSpace());
        if (due.bluetooth) sampler_.setBluetooth(machine_.sensors->bluetoothBatteries());
        if (due.accessories) sampler_.setAccessories(machine_.sensors->accessories());
        if (due.processes) sampler_.setProcesses(machine_.processes->snapshot());
    }

  private:
    Machine machine_;
    MachineSampler sampler_;
};

std::vector<std::string> linesOf(const Console& console, const MachineFigures& figures,
                                 const Session& session) {
    return MachineReport::lines(console, figures, session.profile().texts,
                                session.preferences().pinnedProcesses);
}

struct StatusCommand {
    static void addTo(Syntax& /*syntax*/) {}

    [[nodiscard]] static int run(const GlobalOptions& global, Console& console) {
        const auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        console.progress(localized("Measuring…"));
        Observation machine(Machine::running(session->places().home()));
        machine.sample();
        std::this_thread::sleep_for(shortest);
        machine.sample();
        if (console.json()) {
            console.document(MachineReport::document(machine.figures()));
            return ExitStatus::done;
        }
        for (const std::string& line : linesOf(console, machine.figures(), *session)) console.line(line);
        return ExitStatus::done;
    }
};

struct WatchCommand {
    double interval = 2;
    std::int64_t count = 0;

    void addTo(Syntax& syntax) {
        constexpr double least = 0.5;
        constexpr double longest = 3600;
        constexpr double most = 1'000'000'000;
        syntax.number("--interval", "SECONDS", &interval, least, longest,
                      localized("seconds from one sample to the next (2)"));
        syntax.number("--count", "N", &count, 0, most,
                      localized("samples to take; 0 goes on until stopped (0)"));
    }

    [[nodiscard]] int run(const GlobalOptions& global, Console& console) const {
        const auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        Observation machine(Machine::running(session->places().home()));
        LiveScreen screen(console);
        console.progress(localized("Measuring…"));
        machine.sample();
        std::chrono::duration<double> pause = shortest;
        for (std::int64_t taken = 0; count == 0 || taken < count; ++taken) {
            if (!screen.wait(pause)) break;
            machine.sample();
            const bool shown = console.json() ? screen.record(MachineReport::document(machine.figures()))
                                              : screen.show(linesOf(console, machine.figures(), *session));
            if (!shown) return ExitStatus::undone;
            pause = std::chrono::duration<double>(interval);
        }
        return ExitStatus::done;
    }
};

}  // namespace

void Commands::addStatus(CLI::App& app, Command& chosen) {
    addCommand<StatusCommand>(app, chosen, "status", "show the state of the machine");
}

void Commands::addWatch(CLI::App& app, Command& chosen) {
    addCommand<WatchCommand>(app, chosen, "watch", "watch the machine live");
}

}  // namespace tavrel::cli
