#include "platform/posix/PosixShell.h"

#include "core/FileHandle.h"
#include "core/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <fcntl.h>
#include <limits>
#include <mutex>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves it to the program

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

struct Pipe {
    FileHandle reading;
    FileHandle writing;
};

std::error_code open(Pipe& made) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return {errno, std::generic_category()};
    made = {FileHandle(ends[0]), FileHandle(ends[1])};
    return {};
}

/// What the child starts with: nothing to read, both streams into the pipe, no other handle, and signals as a
/// login would give them rather than as this program set them.
class Launch {
  public:
    Launch(int output, PosixShell::Terminal terminal) {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawnattr_init(&attributes_);
        // The pipe goes first: its end may itself be one of the three standard handles.
        note(::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO));
        note(::posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO));
        note(::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
#ifdef __GLIBC__
        note(::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1));
#endif
        sigset_t every;
        sigset_t none;
        ::sigfillset(&every);
        ::sigemptyset(&none);
        note(::posix_spawnattr_setsigdefault(&attributes_, &every));
        note(::posix_spawnattr_setsigmask(&attributes_, &none));
        const int session = terminal == PosixShell::Terminal::none ? POSIX_SPAWN_SETSID : 0;
        note(::posix_spawnattr_setflags(
            &attributes_, static_cast<short>(session | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK)));
    }
    ~Launch() {
        ::posix_spawnattr_destroy(&attributes_);
        ::posix_spawn_file_actions_destroy(&actions_);
    }
    Launch(const Launch&) = delete;
    Launch& operator=(const Launch&) = delete;

    /// 0 or the error as `errno` names it.
    [[nodiscard]] int start(pid_t& child, const std::string& path,
                            const std::vector<std::string>& args) const {
        if (error_ != 0) return error_;
        std::vector<char*> words = {const_cast<char*>(path.c_str())};
        for (const std::string& arg : args) words.push_back(const_cast<char*>(arg.c_str()));
        words.push_back(nullptr);
        return ::posix_spawn(&child, path.c_str(), &actions_, &attributes_, words.data(), environ);
    }

  private:
    void note(int error) {
        if (error_ == 0) error_ = error;
    }

    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
    int error_ = 0;
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

/// The system's calls end a word at a NUL: a command that holds one would be another command.
bool holdsNul(const std::string& path, const std::vector<std::string>& args) {
    const auto nul = [](const std::string& word) { return word.find('\0') != std::string::npos; };
    return nul(path) || std::any_of(args.begin(), args.end(), nul);
}

CommandResult runChild(const std::string& path, const std::vector<std::string>& args,
                       PosixShell::Terminal terminal, TimeLimit& limit) {
    Pipe pipe;
    if (const std::error_code error = open(pipe)) return notStarted(error.value());
    pid_t child = 0;
    if (const int error = Launch(pipe.writing.get(), terminal).start(child, path, args))
        return notStarted(error);
    limit.watch(terminal == PosixShell::Terminal::none ? -child : child);

    // Read before waiting: a child that fills the pipe would otherwise never end.
    pipe.writing.close();
    std::string output = readToEnd(pipe.reading.get());
    awaitEnd(child);
    limit.end();
    return {collect(child), Text::repaired(output)};
}

}  // namespace

CommandResult PosixShell::run(const std::string& path, const std::vector<std::string>& args,
                              std::chrono::duration<double> timeout) {
    if (holdsNul(path, args)) return notStarted(EINVAL);
    try {
        TimeLimit limit(timeout);
        return runChild(path, args, terminal_, limit);
    } catch (const std::system_error& error) {
        return notStarted(error.code().value());
    }
}

}  // namespace tavrel
