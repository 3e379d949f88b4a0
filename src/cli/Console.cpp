#include "cli/Console.h"

#include "cli/ExitStatus.h"
#include "core/Phrase.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

constexpr std::size_t widthOfFiles = 100;
constexpr std::size_t progressColumns = 79;
constexpr std::size_t narrowest = 40;  // below it lines may wrap: nothing readable fits

std::string_view environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// What somebody set goes before what the terminal says; 0 where neither is known.
std::size_t extent(const char* variable, unsigned short winsize::*told) {
    std::size_t set = 0;
    const std::string_view text = environment(variable);
    std::from_chars(text.data(), text.data() + text.size(), set);
    winsize size{};
    if (set == 0 && ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) set = size.*told;
    return set;
}

bool wantsColours(const GlobalOptions& options) {
    return !options.noColour && environment("NO_COLOR").empty() && Console::understandsCodes();
}

// ECMA-48 "select graphic rendition", by Console::Style.
constexpr std::array<std::string_view, 6> codes = {"1", "2", "32", "33", "31", "35"};

constexpr std::string_view eraseLine = "\r\x1b[K";

}  // namespace

Console::Console(const GlobalOptions& options)
    : json_(options.json),
      quiet_(options.quiet),
      terminal_(::isatty(STDOUT_FILENO) == 1),
      coloured_(terminal_ && wantsColours(options)),
      showsProgress_(!quiet_ && ::isatty(STDERR_FILENO) == 1 && understandsCodes()) {}

bool Console::canAsk() {
    return ::isatty(STDIN_FILENO) == 1;
}

bool Console::understandsCodes() {
    return !environment("TERM").empty() && environment("TERM") != "dumb";
}

std::size_t Console::width() const {
    if (!terminal_) return widthOfFiles;
    const std::size_t columns = extent("COLUMNS", &winsize::ws_col);
    return columns == 0 ? 80 : std::max(columns, narrowest);
}

std::size_t Console::height() {
    const std::size_t lines = extent("LINES", &winsize::ws_row);
    return lines == 0 ? 24 : lines;
}

std::string Console::fitted(std::string_view text, std::size_t columns) const {
    return terminal_ ? Text::elided(text, columns) : std::string(text);
}

std::string Console::styled(Style style, std::string_view text) const {
    if (!coloured_) return std::string(text);
    return fmt::format("\x1b[{}m{}\x1b[0m", codes.at(static_cast<std::size_t>(style)), text);
}

void Console::write(std::string_view text) {
    endProgress();
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void Console::line(std::string_view text) {
    write(fmt::format("{}\n", text));
}

void Console::document(const Json::Value& value) {
    constexpr int indent = 2;
    line(value.dump(indent, ' ', false, Json::Value::error_handler_t::replace));
}

void Console::warn(std::string_view text) {
    endProgress();
    std::fflush(stdout);
    fmt::print(stderr, "tavrelctl: {}\n", text);
}

int Console::fail(std::string_view text) {
    warn(text);
    if (json_) document({{"error", text}});
    return ExitStatus::undone;
}

int Console::misuse(std::string_view text) {
    warn(text);
    return ExitStatus::usage;
}

void Console::progress(std::string_view text) {
    if (!showsProgress_) return;
    std::fflush(stdout);
    fmt::print(stderr, "{}{}", eraseLine, Text::elided(text, progressColumns));
    progressStands_ = true;
}

void Console::endProgress() {
    if (!progressStands_) return;
    fmt::print(stderr, "{}", eraseLine);
    progressStands_ = false;
}

bool Console::confirm(std::string_view question) {
    endProgress();
    std::fflush(stdout);
    fmt::print(stderr, "{}", phrase("{} [y/N] ", question));
    std::string answer;
    std::getline(std::cin, answer);
    answer = Text::lowercased(Text::trimmed(answer));
    const std::array<std::string, 4> agreement = {"y", "yes", Text::localized("y"), Text::localized("yes")};
    return std::find(agreement.begin(), agreement.end(), answer) != agreement.end();
}

int Console::finish(int status) {
    endProgress();
    errno = 0;
    const bool wrong = std::ferror(stdout) != 0;
    if (std::fflush(stdout) == 0 && !wrong) return status;
    warn(phrase("the results could not be written: {}", std::generic_category().message(errno)));
    return status == ExitStatus::done ? ExitStatus::undone : status;
}

}  // namespace tavrel::cli
