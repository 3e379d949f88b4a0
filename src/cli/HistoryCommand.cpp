#include "cleaning/History.h"
#include "cli/AddCommand.h"
#include "cli/ExitStatus.h"
#include "cli/Json.h"
#include "cli/Session.h"
#include "core/ByteCount.h"
#include "core/Files.h"
#include "core/Phrase.h"

#include <chrono>
#include <string>

#include <fmt/chrono.h>
#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Text::localized;
using Path = std::filesystem::path;

std::string row(const History::Entry& entry) {
    constexpr std::size_t actionColumns = 10;
    constexpr std::size_t countColumns = 12;
    constexpr std::size_t sizeColumns = 10;
    const auto seconds = std::chrono::floor<std::chrono::seconds>(entry.date);
    const std::string count = counted("{} item", "{} items", static_cast<unsigned long>(entry.count));
    return fmt::format("{:%Y-%m-%d %H:%M}  {:<{}}  {:>{}}  {:>{}}",
                       fmt::localtime(seconds.time_since_epoch().count()), Text::shown(entry.action),
                       actionColumns, count, countColumns, byteCount(entry.bytes), sizeColumns);
}

void print(Console& console, const std::vector<History::Entry>& entries) {
    if (console.json()) return console.document(Json::Value::parse(History::encode(entries)));
    if (entries.empty()) return console.line(localized("Nothing cleaned yet."));
    for (const History::Entry& entry : entries) console.line(row(entry));
}

int show(const Path& file, Console& console) {
    const History::Record record = History::load(file);
    const bool damaged = record.state == History::State::damaged;
    if (damaged) console.warn(phrase("the history in {} cannot be read", Text::shown(file.native())));
    if (!damaged || console.json()) print(console, record.entries);
    return damaged ? ExitStatus::undone : ExitStatus::done;
}

int clear(const Path& file, Console& console) {
    History::clear(file);
    const bool stays = Files::identifier(file).has_value();
    if (stays) return console.fail(phrase("the history in {} cannot be removed", Text::shown(file.native())));
    print(console, {});
    return ExitStatus::done;
}

struct HistoryCommand {
    bool clears = false;

    void addTo(CLI::App& command) { command.add_flag("--clear", clears, localized("forget all runs")); }

    [[nodiscard]] int run(const GlobalOptions& global, Console& console) const {
        const auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        const Path file = session->places().history();
        return clears ? clear(file, console) : show(file, console);
    }
};

}  // namespace

void Commands::addHistory(CLI::App& app, Command& chosen) {
    addCommand<HistoryCommand>(app, chosen, "history", "tell what was removed, and when");
}

}  // namespace tavrel::cli
