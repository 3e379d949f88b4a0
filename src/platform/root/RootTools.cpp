#include "platform/root/RootTools.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace tavrel::RootTools {

namespace {

using std::string_view;

constexpr std::size_t longestName = 200;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetterOrDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// A name as packages and units have them: one that begins plainly, so that no tool takes it for an option.
bool isName(string_view text, string_view alsoHolds) {
    if (text.empty() || text.size() > longestName || !isLetterOrDigit(text.front())) return false;
    return std::all_of(text.begin(), text.end(),
                       [&](char c) { return isLetterOrDigit(c) || alsoHolds.find(c) != string_view::npos; });
}

bool isNumber(string_view text) {
    constexpr std::size_t mostDigits = 5;
    return !text.empty() && text.size() <= mostDigits && text.front() != '0' &&
           std::all_of(text.begin(), text.end(), isDigit);
}

bool isDate(string_view text) {
    constexpr string_view form = "dddd-dd-dd-dddddd";
    return std::equal(text.begin(), text.end(), form.begin(), form.end(),
                      [](char c, char wanted) { return wanted == 'd' ? isDigit(c) : c == wanted; });
}

bool isRuntime(string_view text) {
    constexpr string_view kind = "runtime/";
    if (!text.starts_with(kind)) return false;
    text.remove_prefix(kind.size());
    std::size_t parts = 0;
    for (std::size_t end = 0; end != string_view::npos; ++parts) {
        end = text.find('/');
        if (!isName(text.substr(0, end), "._-")) return false;
        if (end != string_view::npos) text.remove_prefix(end + 1);
    }
    constexpr std::size_t nameArchitectureBranch = 3;
    return parts == nameArchitectureBranch;
}

bool isUnit(string_view text) {
    constexpr std::array kinds = {".service", ".socket", ".timer", ".path", ".mount"};
    return isName(text, ":_.@\\-") && std::any_of(kinds.begin(), kinds.end(), [&](string_view kind) {
               return text.size() > kind.size() && text.ends_with(kind);
           });
}

bool isRevision(string_view text) {
    if (text.starts_with('x')) text.remove_prefix(1);
    return isNumber(text);
}

}  // namespace

const Table& all() {
    using enum RootTool;
    using enum Argument;
    // clang-format off
    static const Table table = {
        {vacuumJournal,       "vacuum-journal",        "/usr/bin/journalctl", {"--quiet", "--vacuum-time={}d"},              {number}},
        {cleanAptCache,       "clean-apt-cache",       "/usr/bin/apt-get",    {"clean"}},
        {cleanDnfCache,       "clean-dnf-cache",       "/usr/bin/dnf",        {"--quiet", "clean", "packages"}},
        {thinPacmanCache,     "thin-pacman-cache",     "/usr/bin/paccache",   {"--quiet", "-rk{}"},                          {number}},
        {removeSnapRevision,  "remove-snap-revision",  "/usr/bin/snap",       {"remove", "{}", "--revision={}"},             {package, revision}},
        {uninstallRuntime,    "uninstall-runtime",     "/usr/bin/flatpak",    {"uninstall", "--system", "--noninteractive", "{}"}, {runtime}},
        {deleteLocalSnapshot, "delete-local-snapshot", "/usr/bin/tmutil",     {"deletelocalsnapshots", "{}"},                {date}},
    };
    // clang-format on
    return table;
}

const Row* find(const Table& table, RootTool tool) {
    const auto row = std::find_if(table.begin(), table.end(), [&](const Row& r) { return r.tool == tool; });
    return row == table.end() ? nullptr : &*row;
}

const Row* find(const Table& table, string_view name) {
    const auto row = std::find_if(table.begin(), table.end(), [&](const Row& r) { return r.name == name; });
    return row == table.end() ? nullptr : &*row;
}

bool fits(Argument kind, string_view text) {
    switch (kind) {
        case Argument::number:
            return isNumber(text);
        case Argument::date:
            return isDate(text);
        case Argument::package:
            return isName(text, "+._-");
        case Argument::revision:
            return isRevision(text);
        case Argument::runtime:
            return isRuntime(text);
        case Argument::unit:
            return isUnit(text);
    }
    return false;
}

std::optional<std::vector<std::string>> words(const Row& row, const std::vector<std::string>& arguments) {
    constexpr string_view hole = "{}";
    const bool fit = std::equal(arguments.begin(), arguments.end(), row.arguments.begin(),
                                row.arguments.end(), [](const auto& text, Argument kind) {  //
                                    return fits(kind, text);
                                });
    if (!fit) return std::nullopt;
    std::vector<std::string> filled(row.words.begin(), row.words.end());
    auto next = arguments.begin();
    for (std::string& word : filled) {
        const std::size_t at = word.find(hole);
        if (at != std::string::npos && next != arguments.end()) word.replace(at, hole.size(), *next++);
    }
    return filled;
}

const std::string& program(RootTool tool) {
    const Row* row = find(all(), tool);
    assert(row != nullptr);
    return row->program;
}

std::optional<std::string> commandLine(const ToolRun& run) {
    const Row* row = find(all(), run.tool);
    const auto behind = row == nullptr ? std::nullopt : words(*row, run.arguments);
    if (!behind) return std::nullopt;
    std::string line = row->program;
    for (const std::string& word : *behind) line += " " + word;
    return line;
}

}  // namespace tavrel::RootTools
