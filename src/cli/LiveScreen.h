#pragma once

#include "cli/Console.h"

#include <chrono>
#include <string>
#include <vector>

namespace tavrel::cli {

/// A picture of lines that is drawn again and again, on a terminal in place, elsewhere one below the other.
/// As long as it lives, Ctrl-C and a request to end only end the wait.
class LiveScreen {
  public:
    explicit LiveScreen(Console& console);
    /// Gives the terminal back as it was.
    ~LiveScreen();
    LiveScreen(const LiveScreen&) = delete;
    LiveScreen& operator=(const LiveScreen&) = delete;

    /// The first lines, as many as the screen has. False when they could not be written: there is no reader
    /// any more.
    [[nodiscard]] bool show(const std::vector<std::string>& lines);
    /// One object on one line.
    [[nodiscard]] bool record(const Json::Value& value);
    /// Waits `time`. Returns false if a signal or a key asked for the end meanwhile.
    [[nodiscard]] static bool wait(std::chrono::duration<double> time);

  private:
    void draw(const std::vector<std::string>& lines);

    Console& console_;
    bool inPlace_;
};

}  // namespace tavrel::cli
