#include "support/Isolation.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <grp.h>
#include <sched.h>
#include <stdexcept>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tavrel::testing {

namespace {

constexpr int failedStatus = 1;
constexpr int forbiddenStatus = 77;
constexpr uid_t ordinaryUser = 65534;

using Step = std::function<bool()>;

int runHere(const Step& enter, const std::function<void()>& body) {
    try {
        if (!enter()) return forbiddenStatus;
        body();
    } catch (const std::exception& failure) {
        ADD_FAILURE() << failure.what();
    }
    return ::testing::Test::HasFailure() ? failedStatus : 0;
}

Ran runInChild(const Step& enter, const std::function<void()>& body) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("cannot fork");
    if (child == 0) {
        const int status = runHere(enter, body);
        std::fflush(nullptr);
        ::_exit(status);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == forbiddenStatus) return Ran::forbidden;
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0)
        << "the child process failed, status " << status;
    return Ran::yes;
}

/// Someone who is not root becomes root of a user namespace first.
bool enterUserNamespace() {
    const auto user = ::getuid();
    if (user == 0) return true;
    if (::unshare(CLONE_NEWUSER) != 0) return false;
    std::ofstream("/proc/self/setgroups") << "deny";
    return static_cast<bool>(std::ofstream("/proc/self/uid_map") << "0 " << user << " 1" << std::flush);
}

bool enterMountNamespace() {
    return enterUserNamespace() && ::unshare(CLONE_NEWNS) == 0 &&
           ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool becomeOrdinaryUser() {
    if (::getuid() != 0) return true;
    return ::setgroups(0, nullptr) == 0 && ::setgid(ordinaryUser) == 0 && ::setuid(ordinaryUser) == 0;
}

}  // namespace

void inChild(const std::function<void()>& body) {
    static_cast<void>(runInChild([] { return true; }, body));
}

Ran withPrivateMounts(const std::function<void()>& body) {
    return runInChild(enterMountNamespace, body);
}

Ran asOrdinaryUser(const std::function<void()>& body) {
    return runInChild(becomeOrdinaryUser, body);
}

void bindMount(const std::filesystem::path& what, const std::filesystem::path& over) {
    if (::mount(what.c_str(), over.c_str(), nullptr, MS_BIND, nullptr) != 0) {
        throw std::runtime_error("cannot mount over " + over.native());
    }
}

void mountMemory(const std::filesystem::path& at, const std::string& options) {
    if (::mount("tmpfs", at.c_str(), "tmpfs", 0, options.c_str()) != 0) {
        throw std::runtime_error("cannot mount memory at " + at.native());
    }
}

}  // namespace tavrel::testing
