#include "cli/AddCommand.h"
#include "cli/Finders.h"
#include "cli/ItemList.h"
#include "cli/Json.h"
#include "cli/Selection.h"
#include "cli/Session.h"
#include "core/ByteCount.h"
#include "core/Phrase.h"
#include "engine/SystemTools.h"

#include <set>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Text::localized;

std::string summary(const std::vector<CleanItem>& found) {
    std::set<CleanCategory> categories;
    for (const CleanItem& item : found) categories.insert(item.category);
    const std::string items = counted("{} item", "{} items", found.size());
    const std::string groups = counted("{} category", "{} categories", categories.size());
    const auto preselected = sizeOf(Selection::preselected(found));
    return phrase("{} found: {} in {} · {} preselected", byteCount(sizeOf(found)), items, groups,
                  byteCount(preselected));
}

void printFound(Console& console, const Session& session, const std::vector<CleanItem>& found,
                const std::string& mode) {
    if (found.empty()) {
        console.line(localized("Nothing worth removing right now"));
        return;
    }
    ItemList::print(console, found, session.places().home(),
                    [](const CleanItem& item) { return item.isPreselected(); });
    console.line(console.styled(Console::Style::strong, summary(found)));
    if (console.quiet()) return;
    const std::string command = mode == "system" ? "tavrelctl clean" : "tavrelctl clean " + mode;
    console.line(phrase("To remove what is marked ●: {}, with the same options", command));
    console.line(phrase("To choose yourself: {} --select PATH", command));
}

struct ScanCommand {
    FinderOptions options;

    void addTo(Syntax& syntax) { options.addTo(syntax); }

    [[nodiscard]] int run(const GlobalOptions& global, Console& console) const {
        if (const auto mistake = options.mistake("scan")) return console.misuse(*mistake);
        const auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        session->warnOfSettings(console);
        SystemTools tools(session->profile());
        const auto found = Finder(*session, tools, options).find(console);
        if (console.json()) {
            console.document(Json::scan(options.mode, found.items));
        } else {
            printFound(console, *session, found.items, options.mode);
        }
        return found.status;
    }
};

}  // namespace

void Commands::addScan(CLI::App& app, Command& chosen) {
    addCommand<ScanCommand>(app, chosen, "scan", "find what can be removed");
}

}  // namespace tavrel::cli
