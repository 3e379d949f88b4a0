#include "platform/posix/Conversation.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <limits>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tavrel {

namespace {

constexpr std::size_t longestLine = 65536;
constexpr std::size_t keptErrors = 65536;
constexpr std::chrono::milliseconds pause{5};

std::error_code lastError() {
    return {errno, std::generic_category()};
}

/// A socket and no pipe: writing to a child that is gone must not raise a signal.
struct InputPair {
    FileHandle own;
    FileHandle childs;

    std::error_code open() {
        std::array<int, 2> ends{};
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return lastError();
        own = FileHandle(ends[0]);
        childs = FileHandle(ends[1]);
        return {};
    }
};

/// Time until `moment` as poll(2) takes it, rounded up.
int milliseconds(Conversation::Clock::time_point moment) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - Conversation::Clock::now());
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, most));
}

std::optional<int> collect(pid_t child) {
    int status = 0;
    const pid_t ended = ::waitpid(child, &status, WNOHANG);
    if (ended == 0 || (ended < 0 && errno == EINTR)) return std::nullopt;
    return WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
}

/// Without a thread to wait, the child stays behind as a line in the list of processes.
void collectLater(pid_t child) {
    try {
        std::thread([child] { ::waitpid(child, nullptr, 0); }).detach();
    } catch (const std::system_error&) {
    }
}

}  // namespace

tl::expected<std::unique_ptr<Conversation>, std::error_code> Conversation::start(
    const std::string& path, const std::vector<std::string>& args, ChildTerminal terminal,
    Clock::time_point until) {
    InputPair input;
    Pipe output;
    Pipe errors;
    for (const std::error_code failed : {input.open(), output.open(), errors.open()}) {
        if (failed) return tl::unexpected(failed);
    }
    const Launch::Streams streams{input.childs.get(), output.writing.get(), errors.writing.get()};
    pid_t child = 0;
    if (const int error = Launch(streams, terminal).start(child, path, args))
        return tl::unexpected(std::error_code(error, std::generic_category()));
    return std::unique_ptr<Conversation>(new Conversation(std::move(input.own), std::move(output.reading),
                                                          std::move(errors.reading), child, until));
}

Conversation::Conversation(FileHandle input, FileHandle output, FileHandle errors, pid_t child,
                           Clock::time_point until)
    : input_(std::move(input)),
      output_(std::move(output)),
      errorStream_(std::move(errors)),
      child_(child),
      until_(until) {}

Conversation::~Conversation() {
    if (child_ != 0) static_cast<void>(end());
}

void Conversation::say(std::string_view line) {
    unsent_ += line;
    unsent_ += '\n';
}

std::optional<std::string> Conversation::hear() {
    while (true) {
        const std::size_t end = heard_.find('\n');
        if (end != std::string::npos) {
            std::string line = heard_.substr(0, end);
            heard_.erase(0, end + 1);
            return line;
        }
        if (heard_.size() > longestLine || !output_ || !exchange()) return std::nullopt;
    }
}

bool Conversation::exchange() {
    std::array<pollfd, 3> streams = {
        pollfd{input_ && !unsent_.empty() ? input_.get() : -1, POLLOUT, 0},
        pollfd{output_.get(), POLLIN, 0},
        pollfd{errorStream_.get(), POLLIN, 0},
    };
    if (isTimeUp()) return false;
    if (::poll(streams.data(), streams.size(), milliseconds(until_)) < 0) return errno == EINTR;
    if (streams[0].revents != 0) send();
    if (streams[1].revents != 0 && !take(output_, heard_)) output_.close();
    if (streams[2].revents != 0 && !take(errorStream_, errors_)) errorStream_.close();
    if (errors_.size() > keptErrors) errors_.erase(0, errors_.size() - keptErrors);
    return true;
}

void Conversation::send() {
    const ssize_t sent = ::send(input_.get(), unsent_.data(), unsent_.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent >= 0) {
        unsent_.erase(0, static_cast<std::size_t>(sent));
    } else if (errno != EINTR && errno != EAGAIN) {
        input_.close();
    }
}

bool Conversation::take(const FileHandle& stream, std::string& into) {
    std::array<char, 16384> buffer{};
    const ssize_t count = ::read(stream.get(), buffer.data(), buffer.size());
    if (count > 0) into.append(buffer.data(), static_cast<std::size_t>(count));
    return count > 0 || (count < 0 && errno == EINTR);
}

std::optional<int> Conversation::end() {
    input_.close();
    const pid_t child = std::exchange(child_, 0);
    if (child == 0) return std::nullopt;
    // What it still writes is read, as it could not end otherwise.
    heard_.clear();
    while ((output_ || errorStream_) && exchange()) heard_.clear();
    auto status = collect(child);
    while (!status && !isTimeUp()) {
        std::this_thread::sleep_for(pause);
        status = collect(child);
    }
    if (status) return status;
    ::kill(child, SIGTERM);
    collectLater(child);
    return std::nullopt;
}

}  // namespace tavrel
