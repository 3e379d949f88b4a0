// The small program that root runs for Tavrel: steps come in over its standard input, each is checked and
// carried out, and the answers go out. docs/safety.md says what it does and what it refuses.

#include "platform/posix/PosixShell.h"
#include "roothelper/Service.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

enum Status { done = 0, limitReached = 1, notUsable = 2 };

/// Nothing of what the caller's process was set to may count here.
bool startAfresh() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (::fcntl(stream, F_GETFD) < 0) return false;  // what is opened next would take its place
    }
    ::syscall(SYS_close_range, STDERR_FILENO + 1, ~0U, 0U);
    for (int signal = 1; signal < NSIG; ++signal) ::signal(signal, SIG_DFL);
    ::signal(SIGPIPE, SIG_IGN);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    ::umask(S_IWGRP | S_IWOTH);
    if (::chdir("/") != 0 || ::clearenv() != 0) return false;
    return ::setenv("PATH", "/usr/sbin:/usr/bin:/sbin:/bin", 1) == 0 && ::setenv("HOME", "/root", 1) == 0 &&
           ::setenv("LC_ALL", "C.UTF-8", 1) == 0;
}

}  // namespace

int main(int count, char** /*arguments*/) {
    using namespace tavrel;
    const HelperRules rules = helperRules();
    if (count > 1 || ::geteuid() != rules.work.alsoTrusted || !startAfresh()) return notUsable;
    PosixShell shell;
    const RootWork work(rules.work, systemFolderAccess(), shell);
    const auto ending = Service(rules, work).serve(STDIN_FILENO, STDOUT_FILENO);
    return ending == Service::Ending::inputEnded ? done : limitReached;
}
