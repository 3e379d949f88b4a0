#pragma once

#include "core/FileHandle.h"
#include "platform/posix/Launch.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <system_error>
#include <vector>

#include <tl/expected.hpp>

namespace tavrel {

/// A child process that is talked to line by line over its standard input and output, until a moment that is
/// fixed at the start. One thread at a time.
class Conversation {
  public:
    using Clock = std::chrono::steady_clock;

    /// The error is the system's, for a program that could not be started.
    [[nodiscard]] static tl::expected<std::unique_ptr<Conversation>, std::error_code> start(
        const std::string& path, const std::vector<std::string>& args, ChildTerminal terminal,
        Clock::time_point until);

    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;
    /// Waits no longer than until the moment fixed; a child that runs on is left to end by itself.
    ~Conversation();

    /// Keeps the line to be sent, while `hear` waits.
    void say(std::string_view line);
    /// The next line of the child's output, without its newline. Nothing when it has ended, wrote a line that
    /// is too long, or when the time is up.
    [[nodiscard]] std::optional<std::string> hear();

    [[nodiscard]] bool isTimeUp() const { return Clock::now() >= until_; }
    /// The last bytes of the child's standard error so far.
    [[nodiscard]] const std::string& errors() const { return errors_; }

    /// Closes the child's input and waits for its end. Its exit status, or the signal that ended it; nothing
    /// when it had not ended in time, and then it was asked to terminate, which a child that has become root
    /// does not hear.
    [[nodiscard]] std::optional<int> end();

  private:
    Conversation(FileHandle input, FileHandle output, FileHandle errors, pid_t child,
                 Clock::time_point until);

    /// Sends and takes in what is possible now, or waits for it. False when the time is up.
    bool exchange();
    void send();
    /// False at the end of the stream.
    static bool take(const FileHandle& stream, std::string& into);

    FileHandle input_;
    FileHandle output_;
    FileHandle errorStream_;
    pid_t child_;  // 0 when it was waited for
    Clock::time_point until_;
    std::string unsent_;
    std::string heard_;
    std::string errors_;
};

}  // namespace tavrel
