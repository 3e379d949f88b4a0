#include "cli/Program.h"

#include "core/FileHandle.h"

#include <array>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrel::testing {

namespace {

std::vector<char*> pointers(const std::vector<std::string>& words) {
    std::vector<char*> result;
    result.reserve(words.size() + 1);
    for (const std::string& word : words) result.push_back(const_cast<char*>(word.c_str()));
    result.push_back(nullptr);
    return result;
}

int statusOf(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

FileHandle fileAnew(const std::filesystem::path& path) {
    return FileHandle(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
}

/// The two ends of a terminal: a person's and a program's.
struct TerminalEnds {
    TerminalEnds() : person(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        if (!person || ::grantpt(person.get()) != 0 || ::unlockpt(person.get()) != 0)
            throw std::runtime_error("no terminal to be had");
        program = FileHandle(::open(::ptsname(person.get()), O_RDWR | O_NOCTTY | O_CLOEXEC));
    }

    FileHandle person;
    FileHandle program;
};

}  // namespace

Program::Words Program::kept(const Words& words) const {
    Words all = {"--home", box_.path("home").native(), "--root", box_.path("root").native(), "--profile",
                 profile_};
    all.insert(all.end(), words.begin(), words.end());
    return all;
}

int Program::start(const Words& words, int input, int output, const std::string& terminal) const {
    const FileHandle err = fileAnew(box_.path("stderr"));
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, err.get(), STDERR_FILENO);

    Words line = {TAVRELCTL};
    line.insert(line.end(), words.begin(), words.end());
    const Words environment = {"HOME=" + box_.path("elsewhere").native(),
                               "PATH=/usr/bin:/bin",
                               "LC_ALL=C.UTF-8",
                               "TERM=" + terminal,
                               "LANGUAGE=" + language_,
                               "XDG_DATA_HOME=" + box_.path("home/moved").native(),
                               "XDG_CONFIG_HOME=" + box_.path("home/moved").native()};
    pid_t child = 0;
    const int failed = ::posix_spawn(&child, TAVRELCTL, &actions, nullptr, pointers(line).data(),
                                     pointers(environment).data());
    ::posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) throw std::runtime_error("the program cannot be started");
    return child;
}

Ended Program::run(const Words& words, int input) const {
    const auto out = box_.path("stdout");
    const int status = statusOf(start(words, input, fileAnew(out).get(), ""));
    return {status, contentOf(out), contentOf(box_.path("stderr"))};
}

Ended Program::onScreen(const Screen& screen, const Words& words) const {
    TerminalEnds ends;
    const winsize size = {.ws_row = screen.rows, .ws_col = screen.columns, .ws_xpixel = 0, .ws_ypixel = 0};
    ::ioctl(ends.program.get(), TIOCSWINSZ, &size);
    const FileHandle nothing(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    const pid_t child = start(kept(words), nothing.get(), ends.program.get(), screen.kind);
    ends.program = FileHandle();  // so that the end of the other program is the end of what comes
    Ended ended;
    std::array<char, 4096> part{};
    for (ssize_t read = 0; (read = ::read(ends.person.get(), part.data(), part.size())) > 0;)
        ended.out.append(part.data(), static_cast<std::size_t>(read));
    ended.status = statusOf(child);
    ended.err = contentOf(box_.path("stderr"));
    return ended;
}

Ended Program::bare(const Words& words) const {
    const FileHandle nothing(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    return run(words, nothing.get());
}

Ended Program::operator()(const Words& words) const {
    return bare(kept(words));
}

Ended Program::answering(const std::string& answer, const Words& words) const {
    const TerminalEnds ends;
    if (::write(ends.person.get(), answer.data(), answer.size()) < 0)
        throw std::runtime_error("nothing can be typed");
    return run(kept(words), ends.program.get());
}

}  // namespace tavrel::testing
