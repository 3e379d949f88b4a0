#include "platform/posix/PosixShell.h"

#include "core/Text.h"
#include "platform/posix/ChildLaunch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace tavrel {
namespace {

using Clock = std::chrono::steady_clock;

CommandResult notStarted(int error) {
    return {-1, std::generic_category().message(error)};
}

/// Sends what it watches, a process or a whole group (negative, as kill takes it), one SIGTERM when its time
/// is up, nothing stronger. Waits in a thread of its own, which exists before the child does: a machine that
/// has no thread left must not leave a child unwatched.
class TimeLimit {
  public:
    explicit TimeLimit(std::chrono::duration<double> limit)
        : limit_(bounded(limit)), waiting_([this](const std::stop_token& stop) { wait(stop); }) {}

    void watch(pid_t target) {
        const std::lock_guard lock(mutex_);
        target_ = target;
        changed_.notify_one();
    }

    /// After this no signal is sent: to be called before the child's number may pass to another process.
    void end() {
        waiting_.request_stop();
        waiting_.join();
    }

  private:
    static Clock::duration bounded(std::chrono::duration<double> limit) {
        constexpr std::chrono::duration<double> longest = std::chrono::hours(24 * 365);
        if (!(limit.count() > 0)) return Clock::duration::zero();
        return std::chrono::duration_cast<Clock::duration>(std::min(limit, longest));
    }

    void wait(const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        if (!changed_.wait(lock, stop, [this] { return target_ != 0; })) return;
        changed_.wait_until(lock, stop, Clock::now() + limit_, [] { return false; });
        if (!stop.stop_requested()) ::kill(target_, SIGTERM);
    }

    Clock::duration limit_;
    std::mutex mutex_;
    std::condition_variable_any changed_;
    pid_t target_ = 0;
    std::jthread waiting_;  // last, so that it starts when the rest is made
};

std::string readToEnd(int handle) {
    std::string bytes;
    std::array<char, 65536> buffer{};
    while (true) {
        const ssize_t count = ::read(handle, buffer.data(), buffer.size());
        if (count > 0) {
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return bytes;
        }
    }
}

/// Waits until the child has ended and leaves it to be collected, so that its number stays taken.
void awaitEnd(pid_t child) {
    siginfo_t ending{};
    while (::waitid(P_PID, static_cast<id_t>(child), &ending, WEXITED | WNOWAIT) != 0 && errno == EINTR) {
    }
}

std::int32_t collect(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return -1;
    }
    return WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
}

CommandResult runChild(const std::string& path, const std::vector<std::string>& args,
                       PosixShell::Terminal terminal, TimeLimit& limit) {
    Pipe pipe;
    if (const std::error_code error = pipe.open()) return notStarted(error.value());
    const int both = pipe.writing.get();
    pid_t child = 0;
    const ChildLaunch launch({.output = both, .errors = both}, terminal);
    if (const int error = launch.start(child, path, args)) return notStarted(error);
    limit.watch(terminal == PosixShell::Terminal::none ? -child : child);

    // Read before waiting: a child that fills the pipe would otherwise never end.
    pipe.writing.close();
    std::string output = readToEnd(pipe.reading.get());
    awaitEnd(child);
    limit.end();
    return {collect(child), Text::replaceInvalidUtf8(output)};
}

}  // namespace

CommandResult PosixShell::run(const std::string& path, const std::vector<std::string>& args,
                              std::chrono::duration<double> timeout) {
    try {
        TimeLimit limit(timeout);
        return runChild(path, args, terminal_, limit);
    } catch (const std::system_error& error) {
        return notStarted(error.code().value());
    }
}

}  // namespace tavrel
