#include "cli/CommandLine.h"

#include "cli/ExitStatus.h"
#include "cli/Syntax.h"
#include "core/Phrase.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <fmt/format.h>

namespace tavrel::cli {

namespace {

using Text::localized;

constexpr std::size_t helpColumn = 28;

void addGlobalOptions(CLI::App& app, GlobalOptions& global) {
    Syntax syntax(app);
    syntax.value("--home", "DIR", &global.home, localized("work for the user whose home this is"));
    syntax.value("--root", "DIR", &global.root, localized("look for the system's folders below here (/)"));
    syntax.value("--profile", "NAME", &global.profile, localized("kind of system: macos or linux (this one)"))
        .oneOf({"macos", "linux"});
    syntax.flag("--json", global.json, localized("print one JSON document"));
    syntax.flag("--quiet", global.quiet, localized("no progress and no advice"));
    syntax.flag("--no-color", global.noColour, localized("no colours"));
    app.set_version_flag("--version", "tavrelctl " TAVREL_VERSION, localized("print the version"));
}

void layOutHelp(CLI::FormatterBase& help) {
    help.column_width(helpColumn);
    help.label("Usage", localized("Usage"));
    help.label("OPTIONS", localized("options"));
    help.label("SUBCOMMAND", localized("command"));
    help.label("Positionals", localized("Arguments"));
    help.label("Needs", localized("Needs"));
    help.label("Excludes", localized("Excludes"));
    help.label("REQUIRED", "");
}

void nameGroups(CLI::App& app, const std::string& options) {
    for (CLI::Option* option : app.get_options()) option->group(options);
    for (CLI::App* command : app.get_subcommands({})) nameGroups(*command, options);
}

void addCommands(CLI::App& app, Command& chosen) {
    Commands::addScan(app, chosen);
    Commands::addClean(app, chosen);
    Commands::addCheck(app, chosen);
    Commands::addSize(app, chosen);
    Commands::addMeasure(app, chosen);
    Commands::addLarge(app, chosen);
    Commands::addExplore(app, chosen);
    Commands::addHistory(app, chosen);
    Commands::addRestore(app, chosen);
    Commands::addSettings(app, chosen);
    Commands::addStatus(app, chosen);
    Commands::addWatch(app, chosen);
}

/// The library reads "[a,b]" as a list of two, yet a file may be called that. A NUL at its end, which no
/// argument can hold, keeps such an argument whole until `unguard` takes it off.
std::string guarded(std::string_view argument) {
    std::string text(argument);
    if (text.starts_with('[')) text.push_back('\0');
    return text;
}

void unguard(CLI::App& app) {
    const auto take = [](const std::string& text) { return text.substr(0, text.find('\0')); };
    for (CLI::Option* option : app.get_options()) option->transform(take, "", "");
    for (CLI::App* command : app.get_subcommands({})) unguard(*command);
}

}  // namespace

tl::expected<CommandLine, int> CommandLine::parse(int argc, const char* const* argv) {
    CommandLine line;
    CLI::App app(localized("Finds and removes what your disk can do without."), "tavrelctl");
    app.fallthrough();
    app.require_subcommand(0, 1);
    app.set_help_flag("--help", localized("show how this is used"));
    layOutHelp(*app.get_formatter());
    addGlobalOptions(app, line.global);
    addCommands(app, line.command);
    nameGroups(app, localized("Options"));
    unguard(app);

    // The library takes the arguments last first.
    std::vector<std::string> arguments;
    for (int i = argc - 1; i > 0; --i) arguments.push_back(guarded(argv[i]));
    const bool bare = arguments.empty();
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::Success& asked) {  // help or the version
        return tl::unexpected(app.exit(asked));
    } catch (const CLI::ParseError& mistake) {
        Console(line.global).misuse(Text::escapedForDisplay(mistake.what()));
        return tl::unexpected(ExitStatus::usage);
    }
    if (line.command) return line;
    if (!bare) return tl::unexpected(Console(line.global).misuse(localized("a command is needed")));
    fmt::print("{}", app.help());
    return tl::unexpected(ExitStatus::done);
}

}  // namespace tavrel::cli
