#include "cli/LiveScreen.h"

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <unistd.h>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

// The screen beside the ordinary one, with the pointer hidden and long lines cut; from there to the top of it
// (xterm).
constexpr const char* enter = "\x1b[?1049h\x1b[?25l\x1b[?7l";
constexpr const char* leave = "\x1b[?7h\x1b[?25h\x1b[?1049l";
constexpr const char* top = "\x1b[H";
constexpr const char* restOfLine = "\x1b[K";
constexpr const char* restOfScreen = "\x1b[J";

sigset_t endings() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&set, signal);
    return set;
}

bool written() {
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

}  // namespace

// The signals are kept back, and fetched where they are waited for.
LiveScreen::LiveScreen(Console& console)
    : console_(console),
      inPlace_(!console.json() && ::isatty(STDOUT_FILENO) == 1 && Console::understandsCodes()) {
    const sigset_t set = endings();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    if (inPlace_) std::fputs(enter, stdout);
}

LiveScreen::~LiveScreen() {
    if (inPlace_) std::fputs(leave, stdout);
    static_cast<void>(written());
    const sigset_t set = endings();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

bool LiveScreen::show(const std::vector<std::string>& lines) {
    if (inPlace_) {
        draw(lines);
    } else {
        for (const std::string& line : lines) console_.line(line);
        console_.line("");
    }
    return written();
}

/// What stood there goes before a line is written, as behind a full one its last letter would go too. The
/// last line of the screen is not ended: that would push the others up.
void LiveScreen::draw(const std::vector<std::string>& lines) {
    console_.endProgress();
    const std::size_t height = Console::height();
    std::string frame = top;
    for (std::size_t i = 0; i < std::min(lines.size(), height); ++i)
        frame += (i == 0 ? "" : "\n") + (restOfLine + lines[i]);
    if (lines.size() < height) frame += std::string("\n") + restOfScreen;
    std::fputs(frame.c_str(), stdout);
}

bool LiveScreen::record(const Json::Value& value) {
    console_.line(value.dump(-1, ' ', false, Json::Value::error_handler_t::replace));
    return written();
}

bool LiveScreen::wait(std::chrono::duration<double> time) {
    const double whole = std::floor(time.count());
    const timespec span = {static_cast<std::time_t>(whole), static_cast<long>((time.count() - whole) * 1e9)};
    const sigset_t set = endings();
    return sigtimedwait(&set, nullptr, &span) < 0;
}

}  // namespace tavrel::cli
