#include "cleaning/SafetyGuard.h"
#include "cli/AddCommand.h"
#include "cli/Arguments.h"
#include "cli/ExitStatus.h"
#include "cli/Json.h"
#include "cli/Session.h"
#include "core/Files.h"
#include "core/Paths.h"
#include "core/Phrase.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Path = std::filesystem::path;
using Text::localized;

/// What is known of one path.
struct Judgement {
    std::string path;
    SafetyGuard::Verdict verdict;
    bool exists;
};

Json::Value document(const std::vector<Judgement>& judgements) {
    Json::Value verdicts = Json::Value::array();
    for (const auto& [path, verdict, exists] : judgements) {
        verdicts.push_back({
            {"path", Json::path(path)},
            {"allowed", verdict.isAllowed()},
            {"reason", verdict.isAllowed() ? Json::Value(nullptr) : Json::Value(verdict.reason())},
            {"exists", exists},
        });
    }
    return verdicts;
}

void print(Console& console, const std::vector<Judgement>& judgements) {
    const std::vector<std::string> words = {localized("allowed"), localized("refused")};
    const auto wider = std::max(Text::columns(words[0]), Text::columns(words[1]));
    for (const auto& [path, verdict, exists] : judgements) {
        const std::string& word = words.at(verdict.isAllowed() ? 0 : 1);
        const auto style = verdict.isAllowed() ? Console::Style::mark : Console::Style::danger;
        std::string line = console.styled(style, word) + std::string(wider - Text::columns(word) + 2, ' ');
        line += Text::escapedForDisplay(path);
        const auto remark = [&](const std::string& text) {
            line += "  " + console.styled(Console::Style::dim, text);
        };
        if (!verdict.isAllowed()) remark(verdict.reason());
        if (!exists) remark(localized("does not exist"));
        console.line(line);
    }
}

struct CheckCommand {
    std::vector<std::string> paths;
    std::vector<std::string> extraRoots;
    std::vector<std::string> protect;

    void addTo(Syntax& syntax) {
        syntax.list("PATH", "...", paths, localized("what to judge")).required();
        syntax.list("--extra-root", "DIR", extraRoots, localized("admit this folder besides the home"));
        syntax.list("--protect", "DIR", protect, localized("bar this folder besides those in the settings"));
    }

    [[nodiscard]] SafetyGuard guard(const Session& session) const {
        const Path here = Arguments::workingFolder();
        std::vector<Path> roots;
        roots.reserve(extraRoots.size());
        for (const std::string& root : extraRoots) roots.push_back(here / root);
        SafetyGuard guard = session.guard(std::move(roots));
        for (const std::string& barred : protect) {
            const bool atHome = barred.starts_with('~');
            guard.protectedPaths.push_back(atHome ? barred : (here / barred).native());
        }
        return guard;
    }

    /// In the order of the paths; a relative one counts from the working folder.
    [[nodiscard]] std::vector<Judgement> judge(const SafetyGuard& guard) const {
        const Path here = Arguments::workingFolder();
        std::vector<Judgement> judgements;
        for (const std::string& path : paths) {
            const bool relative = !path.empty() && !path.starts_with('/');
            const std::string whole = relative ? Paths::standardized(here / path).native() : path;
            judgements.push_back({whole, guard.check(whole), Files::identifier(whole).has_value()});
        }
        return judgements;
    }

    [[nodiscard]] int run(const GlobalOptions& global, Console& console) const {
        const auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        session->warnOfSettings(console);
        const std::vector<Judgement> judgements = judge(guard(*session));
        if (console.json()) {
            console.document(document(judgements));
        } else {
            print(console, judgements);
        }
        const bool all = std::all_of(judgements.begin(), judgements.end(),
                                     [](const Judgement& each) { return each.verdict.isAllowed(); });
        return all ? ExitStatus::done : ExitStatus::undone;
    }
};

}  // namespace

void Commands::addCheck(CLI::App& app, Command& chosen) {
    addCommand<CheckCommand>(app, chosen, "check", "show whether paths may be removed, and why not");
}

}  // namespace tavrel::cli
