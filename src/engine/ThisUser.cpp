#include "engine/ThisUser.h"

#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tavrel::ThisUser {

namespace {

std::filesystem::path environmentPath(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// Containers and services start programs with "/" or somebody else's folder as the home.
bool isOwnFolder(const std::filesystem::path& path) {
    struct stat status {};
    struct stat top {};
    if (::stat(path.c_str(), &status) != 0 || ::stat("/", &top) != 0) return false;
    const bool isTop = status.st_dev == top.st_dev && status.st_ino == top.st_ino;
    return S_ISDIR(status.st_mode) && status.st_uid == ::getuid() && !isTop;
}

}  // namespace

std::filesystem::path home() {
    std::filesystem::path told = environmentPath("HOME");
    if (isOwnFolder(told)) return told;
    const passwd* user = ::getpwuid(::getuid());
    return user == nullptr ? std::move(told) : user->pw_dir;
}

UserEnvironment environment() {
    return {environmentPath("XDG_CONFIG_HOME"), environmentPath("XDG_DATA_HOME")};
}

Profile profile() {
    if (Profiles::ofThisSystem() == Profile::Family::macos) return Profiles::macos("/", home());
    return Profiles::linux("/", home(), environment());
}

}  // namespace tavrel::ThisUser
