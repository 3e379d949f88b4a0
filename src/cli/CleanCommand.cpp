#include "cleaning/CleanJob.h"
#include "cleaning/CleanTexts.h"
#include "cli/AddCommand.h"
#include "cli/Arguments.h"
#include "cli/ExitStatus.h"
#include "cli/Finders.h"
#include "cli/ItemList.h"
#include "cli/Json.h"
#include "cli/Selection.h"
#include "cli/Session.h"
#include "core/ByteCount.h"
#include "core/Phrase.h"
#include "core/Quoting.h"
#include "engine/SystemTools.h"
#include "platform/FolderAccess.h"

#include <chrono>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Items = std::vector<CleanItem>;
using Text::localized;

struct CleanOptions {
    FinderOptions finder;
    std::vector<std::string> select;
    bool all = false;
    bool dryRun = false;
    bool alwaysTrash = false;
    bool yes = false;

    void addTo(Syntax& syntax) {
        finder.addTo(syntax);
        const auto selects = syntax.list("--select", "PATH", select, localized("remove this; repeatable"));
        syntax.flag("--all", all, localized("remove what wants a review, too")).excludes(selects);
        syntax.flag("--dry-run", dryRun, localized("show what would be removed, touch nothing"));
        syntax.flag("--always-trash", alwaysTrash, localized("send everything to the Trash"));
        syntax.flag("--yes", yes, localized("do not ask"));
    }
};

/// One clean from the scan to the report.
class CleanRun {
  public:
    CleanRun(const CleanOptions& options, Session session, Console& console)
        : options_(options),
          session_(std::move(session)),
          console_(console),
          tools_(session_.profile(), PosixShell::Terminal::shared) {}

    int run();

  private:
    [[nodiscard]] bool isPreview() const { return options_.dryRun || session_.preferences().dryRun; }
    [[nodiscard]] Items choose(const Finder& finder);
    void tellOfMissing(const std::vector<std::string>& names, const Finder& finder);
    [[nodiscard]] bool agreed(const Items& chosen);
    [[nodiscard]] Cleaner::Tools cleanerTools();
    [[nodiscard]] CleanReport remove(const Items& chosen, const Finder& finder, bool preview);
    void print(const CleanReport& report);
    void printNothing();

    const CleanOptions& options_;
    Session session_;
    Console& console_;
    SystemTools tools_;
    Items found_;
    int status_ = ExitStatus::done;
};

int CleanRun::run() {
    const bool preview = isPreview();
    if (!preview && !options_.yes && !Console::canAsk()) {
        return console_.misuse(localized("without a terminal to ask on, a clean needs --yes or --dry-run"));
    }
    session_.warnOfSettings(console_);
    if (auto unknown = session_.protectionUnknown(); unknown && !preview) return console_.fail(*unknown);

    const Finder finder(session_, tools_, options_.finder);
    Finder::Found found = finder.find(console_);
    status_ = found.status;
    found_ = std::move(found.items);
    const Items chosen = choose(finder);
    if (!preview && !options_.yes && !chosen.empty() && !agreed(chosen)) {
        return console_.fail(localized("nothing was removed"));
    }

    // The scan and the question took their time: what is barred now counts.
    session_.refresh();
    if (auto unknown = session_.protectionUnknown(); unknown && !preview) return console_.fail(*unknown);
    const CleanReport report = remove(chosen, finder, preview || isPreview());
    if (!report.skipped.empty()) status_ = ExitStatus::undone;
    if (console_.json()) {
        console_.document(Json::report(report));
    } else {
        print(report);
    }
    return status_;
}

Items CleanRun::choose(const Finder& finder) {
    if (options_.all) return found_;
    if (options_.select.empty()) return Selection::preselected(found_);
    Selection::Named named = Selection::named(found_, options_.select, Arguments::workingFolder());
    if (!named.missing.empty()) tellOfMissing(named.missing, finder);
    return std::move(named.items);
}

void CleanRun::tellOfMissing(const std::vector<std::string>& names, const Finder& finder) {
    status_ = ExitStatus::undone;
    const auto elsewhere = finder.otherModes(names);
    for (const std::string& name : names) {
        const auto other = elsewhere.find(name);
        if (other == elsewhere.end()) {
            console_.warn(phrase("\"{}\" is not among what was found", Text::escapedForDisplay(name)));
        } else {
            const std::string_view mode = CleanModes::rawValue(other->second);
            console_.warn(phrase("\"{}\" is found by the mode {}: tavrelctl clean {} --select {}",
                                 Text::escapedForDisplay(name), mode, mode,
                                 Text::escapedForDisplay(Quoting::shell(name))));
        }
    }
}

bool CleanRun::agreed(const Items& chosen) {
    if (!console_.json()) {
        ItemList::print(console_, chosen, session_.places().home(), [](const CleanItem&) { return true; });
    }
    return console_.confirm(
        counted("Remove {} item ({})?", "Remove {} items ({})?", chosen.size(), byteCount(sizeOf(chosen))));
}

/// Programs that the command line calls running keep their items on this family of systems, too.
Cleaner::Tools CleanRun::cleanerTools() {
    Cleaner::Tools tools = tools_.cleaner(session_.profile());
    if (options_.finder.running.empty() || session_.profile().family != Profile::Family::linux) return tools;
    tools.running = [this] { return options_.finder.withNamed(tools_.running()); };
    return tools;
}

CleanReport CleanRun::remove(const Items& chosen, const Finder& finder, bool preview) {
    PreferenceValues values = session_.preferences();
    values.dryRun = preview;
    values.alwaysTrash = values.alwaysTrash || options_.alwaysTrash;
    auto job = CleanJob::make(chosen, finder.action(), finder.guard(), values, session_.protectedPaths());
    if (!job) return std::move(job.error());
    job->progress = [this](double fraction) {
        constexpr double percent = 100;
        console_.progress(phrase("Removing… {:.0f} %", fraction * percent));
    };
    CleanReport report = job->run(Cleaner(cleanerTools()));
    console_.endProgress();
    return report;
}

void CleanRun::printNothing() {
    if (status_ != ExitStatus::done) return;
    if (found_.empty()) return console_.line(localized("Nothing worth removing right now"));
    console_.line(counted("Nothing is preselected; {} item wants a review",
                          "Nothing is preselected; {} items want a review", found_.size()));
}

void CleanRun::print(const CleanReport& report) {
    if (report.removed.empty() && report.skipped.empty()) return printNothing();
    const auto& home = session_.places().home();
    if (report.dryRun) ItemList::print(console_, report.removed, home, [](const CleanItem&) { return true; });
    console_.line(console_.styled(Console::Style::strong, CleanTexts::banner(report)));
    for (const auto& [item, reason] : report.skipped) {
        console_.line("  " + ItemList::shown(item.url, home));
        console_.line("    " + console_.styled(Console::Style::caution, Text::escapedForDisplay(reason)));
    }
}

struct CleanCommand : CleanOptions {
    [[nodiscard]] int run(const GlobalOptions& global, Console& console) const {
        if (const auto mistake = finder.mistake("clean")) return console.misuse(*mistake);
        auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        return CleanRun(*this, std::move(*session), console).run();
    }
};

}  // namespace

void Commands::addClean(CLI::App& app, Command& chosen) {
    addCommand<CleanCommand>(app, chosen, "clean", "remove what a scan found");
}

}  // namespace tavrel::cli
