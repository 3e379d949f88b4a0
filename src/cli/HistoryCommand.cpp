#include "cleaning/History.h"
#include "cleaning/Restorer.h"
#include "cli/AddCommand.h"
#include "cli/ExitStatus.h"
#include "cli/ItemList.h"
#include "cli/Json.h"
#include "cli/RunList.h"
#include "cli/Session.h"
#include "core/Files.h"
#include "core/Paths.h"
#include "core/Phrase.h"
#include "engine/SystemTools.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Text::localized;
using Path = std::filesystem::path;

/// Each path of a run, marked where `tavrelctl restore` can put it back.
void printPaths(Console& console, const Restorer::Run& run, const Path& home) {
    std::set<Path> waiting;
    for (const Restorer::Item& item : run.items) {
        if (item.present) waiting.insert(item.path);
    }
    for (const std::string& text : run.entry.paths) {
        const Path path = Text::decodePath(text);
        const bool marked = waiting.contains(Paths::standardized(path));
        console.line(fmt::format("  {} {}", marked ? console.styled(Console::Style::mark, "●") : " ",
                                 ItemList::shown(path, home)));
    }
}

void printWithPaths(Console& console, const Session& session, std::vector<History::Entry> entries) {
    SystemTools tools(session.profile());
    bool anyWaits = false;
    for (const Restorer::Run& run : RunList::restorer(session, tools).runs(std::move(entries))) {
        console.line(RunList::row(run.entry));
        printPaths(console, run, session.places().home());
        anyWaits |= run.present() > 0;
    }
    if (anyWaits && !console.quiet()) {
        console.line(localized("What is marked ● is in the Trash. To put it back: tavrelctl restore"));
    }
}

struct HistoryCommand {
    bool clears = false;
    bool paths = false;

    void addTo(Syntax& syntax) {
        syntax.flag("--clear", clears, localized("forget all runs"));
        syntax.flag("--paths", paths, localized("list the paths of each run, too"));
    }

    [[nodiscard]] int run(const GlobalOptions& global, Console& console) const {
        const auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        return clears ? clear(session->places().history(), console) : show(*session, console);
    }

  private:
    [[nodiscard]] int show(const Session& session, Console& console) const {
        const Path file = session.places().history();
        const History::Record record = History::load(file);
        const bool damaged = record.state == History::State::damaged;
        if (damaged)
            console.warn(phrase("the history in {} cannot be read", Text::escapedForDisplay(file.native())));
        if (!damaged || console.json()) print(console, session, record.entries);
        return damaged ? ExitStatus::undone : ExitStatus::done;
    }

    [[nodiscard]] static int clear(const Path& file, Console& console) {
        History::clear(file);
        const bool stays = Files::identifier(file).has_value();
        if (stays) {
            return console.fail(
                phrase("the history in {} cannot be removed", Text::escapedForDisplay(file.native())));
        }
        if (console.json()) {
            console.document(Json::Value::array());
        } else {
            console.line(localized("Nothing cleaned yet."));
        }
        return ExitStatus::done;
    }

    void print(Console& console, const Session& session, const std::vector<History::Entry>& entries) const {
        if (console.json()) return console.document(Json::Value::parse(History::encode(entries)));
        if (entries.empty()) return console.line(localized("Nothing cleaned yet."));
        if (paths) return printWithPaths(console, session, entries);
        for (const History::Entry& entry : entries) console.line(RunList::row(entry));
    }
};

}  // namespace

void Commands::addHistory(CLI::App& app, Command& chosen) {
    addCommand<HistoryCommand>(app, chosen, "history", "list what was removed, and when");
}

}  // namespace tavrel::cli
