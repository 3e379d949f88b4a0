#include "cleaning/CleanTexts.h"
#include "cleaning/History.h"
#include "cleaning/Restorer.h"
#include "cli/AddCommand.h"
#include "cli/Arguments.h"
#include "cli/ExitStatus.h"
#include "cli/ItemList.h"
#include "cli/Json.h"
#include "cli/RunList.h"
#include "cli/Session.h"
#include "core/ByteCount.h"
#include "core/CheckedSum.h"
#include "core/Paths.h"
#include "core/Phrase.h"
#include "engine/SystemTools.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Text::localized;
using Path = std::filesystem::path;
using Style = Console::Style;

struct RestoreOptions {
    std::vector<std::string> ids;
    std::vector<std::string> paths;
    bool dryRun = false;
    bool yes = false;

    void addTo(Syntax& syntax) {
        syntax.list("id", "ID ...", ids, localized("runs, by the beginning of their ids"));
        syntax.greedyList("--path", "PATH ...", paths, localized("put back only what was here"));
        syntax.flag("--dry-run", dryRun, localized("show what would be put back, touch nothing"));
        syntax.flag("--yes", yes, localized("do not ask"));
    }
    [[nodiscard]] bool namesNothing() const { return ids.empty() && paths.empty(); }
};

/// One restore, from the record to the report.
class RestoreRun {
  public:
    RestoreRun(const RestoreOptions& options, const Session& session, Console& console)
        : options_(options),
          home_(session.places().home()),
          console_(console),
          tools_(session.profile()),
          restorer_(RunList::restorer(session, tools_)),
          file_(session.places().history()) {}

    int run();

  private:
    /// An item of a run, by their places in the lists.
    using Place = std::pair<std::size_t, std::size_t>;

    void load();
    void list();
    void printRun(const Restorer::Run& run);
    void choose(const std::string& id);
    void chooseAt(const std::string& name);
    [[nodiscard]] std::vector<Place> placesOf(const Path& path) const;
    [[nodiscard]] bool wasRemoved(const Path& path) const;
    [[nodiscard]] std::vector<Restorer::Item> chosenItems() const;
    [[nodiscard]] bool agreed(const std::vector<Restorer::Item>& items);
    void print(const RestoreReport& report);
    int unknown(std::string_view text) {
        console_.warn(text);
        return status_ = ExitStatus::undone;
    }

    const RestoreOptions& options_;
    Path home_;
    Console& console_;
    SystemTools tools_;
    Restorer restorer_;
    Path file_;
    std::vector<History::Entry> entries_;
    Restorer::Runs runs_;
    std::set<Place> chosen_;
    std::set<std::size_t> chosenRuns_;
    int status_ = ExitStatus::done;
};

int RestoreRun::run() {
    if (!options_.namesNothing() && !options_.dryRun && !options_.yes && !Console::canAsk()) {
        return console_.misuse(localized("without a terminal to ask on, a restore needs --yes or --dry-run"));
    }
    load();
    if (options_.namesNothing()) {
        list();
        return status_;
    }
    for (const std::string& id : options_.ids) choose(id);
    for (const std::string& name : options_.paths) chooseAt(name);
    const auto items = chosenItems();
    if (!options_.dryRun && !options_.yes && !agreed(items)) {
        return console_.fail(localized("nothing was put back"));
    }

    const auto report = restorer_.restore(items, options_.dryRun ? Trash::Act::look : Trash::Act::move);
    if (!report.skipped.empty()) status_ = ExitStatus::undone;
    if (console_.json()) {
        console_.document(Json::restored(report));
    } else if (!items.empty()) {
        print(report);
    }
    return status_;
}

void RestoreRun::load() {
    History::Record record = History::load(file_);
    if (record.state == History::State::damaged) {
        unknown(phrase("the history in {} cannot be read", Text::escapedForDisplay(file_.native())));
    }
    entries_ = std::move(record.entries);
    runs_ = restorer_.runs(entries_);
}

void RestoreRun::list() {
    Restorer::Runs waiting;
    std::copy_if(runs_.begin(), runs_.end(), std::back_inserter(waiting),
                 [](const Restorer::Run& run) { return run.present() > 0; });
    if (console_.json()) return console_.document(Json::runs(waiting));
    if (waiting.empty()) return console_.line(localized("Nothing that a run removed is in the Trash"));
    for (const Restorer::Run& run : waiting) printRun(run);
    if (!console_.quiet()) console_.line(localized("To put a run back: tavrelctl restore ID"));
}

void RestoreRun::printRun(const Restorer::Run& run) {
    constexpr std::size_t sizeColumns = 8;
    const std::string id = console_.styled(Style::strong, RunList::shortId(run.entry, entries_));
    console_.line(fmt::format("{}  {}", id, RunList::row(run.entry)));
    for (const Restorer::Item& item : run.items) {
        if (!item.present) continue;
        console_.line(fmt::format("  {:>{}}  {}", byteCount(item.size), sizeColumns,
                                  ItemList::shown(item.path, home_)));
    }
    const auto dim = [this](const std::string& text) {
        console_.line("  " + console_.styled(Style::dim, text));
    };
    const std::size_t gone = run.items.size() - run.present();
    if (gone > 0) dim(CleanTexts::notInTrash(gone));
    if (run.erased > 0) dim(CleanTexts::erased(run.erased));
    console_.line("");
}

void RestoreRun::choose(const std::string& id) {
    const auto wanted = Text::lowercased(id);
    std::vector<std::size_t> fitting;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (Text::lowercased(entries_[i].id).starts_with(wanted)) fitting.push_back(i);
    }
    if (fitting.empty() || id.empty()) {
        unknown(phrase("no run has the id \"{}\"", Text::escapedForDisplay(id)));
        return;
    }
    if (fitting.size() > 1) {
        unknown(phrase("several runs have ids that begin with \"{}\"", Text::escapedForDisplay(id)));
        return;
    }
    const Restorer::Run& run = runs_[fitting.front()];
    if (run.items.empty()) {
        const std::string why = run.erased > 0 ? ": " + CleanTexts::erased(run.erased) : "";
        unknown(phrase("nothing that the run \"{}\" removed is in the Trash", Text::escapedForDisplay(id)) +
                why);
        return;
    }
    chosenRuns_.insert(fitting.front());
    for (std::size_t i = 0; i < run.items.size(); ++i) chosen_.insert({fitting.front(), i});
}

void RestoreRun::chooseAt(const std::string& name) {
    const Path folder = Arguments::workingFolder();
    const Path asBytes = Paths::standardized(folder / name);
    const Path asEscaped = Paths::standardized(folder / Text::decodePath(name));
    auto places = placesOf(asBytes);
    if (places.empty()) places = placesOf(asEscaped);
    if (places.empty()) {
        const bool erased = wasRemoved(asBytes) || wasRemoved(asEscaped);
        unknown(erased ? phrase("\"{}\" was deleted for good", Text::escapedForDisplay(name))
                       : phrase("no run put \"{}\" into the Trash", Text::escapedForDisplay(name)));
        return;
    }
    // Of several that were there the newest, which stands first, unless only an older one still waits.
    const auto waiting = std::find_if(places.begin(), places.end(), [this](const Place& place) {
        return runs_[place.first].items[place.second].present;
    });
    chosen_.insert(waiting == places.end() ? places.front() : *waiting);
}

std::vector<RestoreRun::Place> RestoreRun::placesOf(const Path& path) const {
    std::vector<Place> places;
    for (std::size_t run = 0; run < runs_.size(); ++run) {
        for (std::size_t item = 0; item < runs_[run].items.size(); ++item) {
            if (runs_[run].items[item].path == path) places.emplace_back(run, item);
        }
    }
    return places;
}

bool RestoreRun::wasRemoved(const Path& path) const {
    const auto text = Text::encodePath(path.native());
    return std::any_of(entries_.begin(), entries_.end(), [&](const History::Entry& entry) {
        return std::find(entry.paths.begin(), entry.paths.end(), text) != entry.paths.end();
    });
}

std::vector<Restorer::Item> RestoreRun::chosenItems() const {
    // Oldest run first, as the restorer begins at the end.
    std::vector<Restorer::Item> items;
    for (std::size_t run = runs_.size(); run-- > 0;) {
        for (std::size_t item = 0; item < runs_[run].items.size(); ++item) {
            if (chosen_.contains({run, item})) items.push_back(runs_[run].items[item]);
        }
    }
    return items;
}

bool RestoreRun::agreed(const std::vector<Restorer::Item>& items) {
    std::size_t count = 0;
    std::int64_t size = 0;
    for (const Restorer::Item& item : items) {
        if (!item.present) continue;
        ++count;
        size = addBytes(size, std::max<std::int64_t>(item.size, 0));
        if (!console_.json()) console_.line("  " + ItemList::shown(item.path, home_));
    }
    if (count == 0) return true;
    return console_.confirm(
        counted("Put back {} item ({})?", "Put back {} items ({})?", count, byteCount(size)));
}

void RestoreRun::print(const RestoreReport& report) {
    if (options_.dryRun) {
        for (const Path& path : report.restored) console_.line("  " + ItemList::shown(path, home_));
    }
    console_.line(console_.styled(
        Style::strong, options_.dryRun ? CleanTexts::wouldPutBack(report) : CleanTexts::putBack(report)));
    for (const auto& [path, reason] : report.skipped) {
        console_.line("  " + ItemList::shown(path, home_));
        console_.line("    " + console_.styled(Style::caution, Text::escapedForDisplay(reason)));
    }
    std::size_t erased = 0;
    for (const std::size_t run : chosenRuns_) erased += runs_[run].erased;
    if (erased > 0) console_.line(console_.styled(Style::dim, CleanTexts::erased(erased)));
}

struct RestoreCommand : RestoreOptions {
    [[nodiscard]] int run(const GlobalOptions& global, Console& console) const {
        const auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        return RestoreRun(*this, *session, console).run();
    }
};

}  // namespace

void Commands::addRestore(CLI::App& app, Command& chosen) {
    addCommand<RestoreCommand>(app, chosen, "restore", "put back what runs moved to the Trash");
}

}  // namespace tavrel::cli
