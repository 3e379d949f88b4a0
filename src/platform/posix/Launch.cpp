#include "platform/posix/Launch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves it to the program

namespace tavrel {

namespace {

/// `end` above the standard handles: a child's streams are put there one after another.
std::error_code lift(FileHandle& end) {
    if (end.get() > STDERR_FILENO) return {};
    FileHandle lifted(::fcntl(end.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    if (!lifted) return {errno, std::generic_category()};
    end = std::move(lifted);
    return {};
}

bool holdsNul(const std::string& path, const std::vector<std::string>& args) {
    const auto nul = [](const std::string& word) { return word.find('\0') != std::string::npos; };
    return nul(path) || std::any_of(args.begin(), args.end(), nul);
}

}  // namespace

std::error_code Pipe::open() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return {errno, std::generic_category()};
    reading = FileHandle(ends[0]);
    writing = FileHandle(ends[1]);
    const std::error_code failed = lift(reading);
    return failed ? failed : lift(writing);
}

Launch::Launch(Streams streams, ChildTerminal terminal) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawnattr_init(&attributes_);
    if (streams.input == nothingToRead) {
        note(::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
    } else {
        note(::posix_spawn_file_actions_adddup2(&actions_, streams.input, STDIN_FILENO));
    }
    note(::posix_spawn_file_actions_adddup2(&actions_, streams.output, STDOUT_FILENO));
    note(::posix_spawn_file_actions_adddup2(&actions_, streams.errors, STDERR_FILENO));
#ifdef __GLIBC__
    note(::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1));
#endif
    sigset_t every;
    sigset_t none;
    ::sigfillset(&every);
    ::sigemptyset(&none);
    note(::posix_spawnattr_setsigdefault(&attributes_, &every));
    note(::posix_spawnattr_setsigmask(&attributes_, &none));
    const int session = terminal == ChildTerminal::none ? POSIX_SPAWN_SETSID : 0;
    note(::posix_spawnattr_setflags(
        &attributes_, static_cast<short>(session | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK)));
}

Launch::~Launch() {
    ::posix_spawnattr_destroy(&attributes_);
    ::posix_spawn_file_actions_destroy(&actions_);
}

int Launch::start(pid_t& child, const std::string& path, const std::vector<std::string>& args) const {
    if (error_ != 0) return error_;
    if (holdsNul(path, args)) return EINVAL;
    std::vector<char*> words = {const_cast<char*>(path.c_str())};
    for (const std::string& arg : args) words.push_back(const_cast<char*>(arg.c_str()));
    words.push_back(nullptr);
    return ::posix_spawn(&child, path.c_str(), &actions_, &attributes_, words.data(), environ);
}

void Launch::note(int error) {
    if (error_ == 0) error_ = error;
}

}  // namespace tavrel
