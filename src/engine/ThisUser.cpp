#include "engine/ThisUser.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace tavrel::ThisUser {

namespace {

std::filesystem::path environmentPath(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

}  // namespace

std::filesystem::path home() {
    std::filesystem::path home = environmentPath("HOME");
    if (!home.empty()) return home;
    const passwd* user = ::getpwuid(::getuid());
    return user == nullptr ? "" : user->pw_dir;
}

UserEnvironment environment() {
    return {environmentPath("XDG_CONFIG_HOME"), environmentPath("XDG_DATA_HOME")};
}

Profile profile() {
    if (Profiles::ofThisSystem() == Profile::Family::macos) return Profiles::macos("/", home());
    return Profiles::linux("/", home(), environment());
}

}  // namespace tavrel::ThisUser
