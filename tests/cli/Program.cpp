#include "cli/Program.h"

#include "core/FileHandle.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <stdlib.h>
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

}  // namespace

Program::Words Program::kept(const Words& words) const {
    Words all = {"--home", box_.path("home").native(), "--root", box_.path("root").native(), "--profile",
                 profile_};
    all.insert(all.end(), words.begin(), words.end());
    return all;
}

Ended Program::run(const Words& words, int input) const {
    const auto out = box_.path("stdout");
    const auto err = box_.path("stderr");
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    constexpr int anew = O_WRONLY | O_CREAT | O_TRUNC;
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), anew, 0600);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), anew, 0600);

    Words line = {TAVRELCTL};
    line.insert(line.end(), words.begin(), words.end());
    const Words environment = {"HOME=" + box_.path("elsewhere").native(),
                               "PATH=/usr/bin:/bin",
                               "LC_ALL=C.UTF-8",
                               "LANGUAGE=" + language_,
                               "XDG_DATA_HOME=" + box_.path("home/moved").native(),
                               "XDG_CONFIG_HOME=" + box_.path("home/moved").native()};
    pid_t child = 0;
    const int failed = ::posix_spawn(&child, TAVRELCTL, &actions, nullptr, pointers(line).data(),
                                     pointers(environment).data());
    ::posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) throw std::runtime_error("the program cannot be started");
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), contentOf(out), contentOf(err)};
}

Ended Program::bare(const Words& words) const {
    const FileHandle nothing(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    return run(words, nothing.get());
}

Ended Program::operator()(const Words& words) const {
    return bare(kept(words));
}

Ended Program::answering(const std::string& answer, const Words& words) const {
    const FileHandle keyboard(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (!keyboard || ::grantpt(keyboard.get()) != 0 || ::unlockpt(keyboard.get()) != 0) {
        throw std::runtime_error("no terminal to be had");
    }
    const FileHandle terminal(::open(::ptsname(keyboard.get()), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (::write(keyboard.get(), answer.data(), answer.size()) < 0)
        throw std::runtime_error("nothing can be typed");
    return run(kept(words), terminal.get());
}

}  // namespace tavrel::testing
