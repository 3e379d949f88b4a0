#include "support/PrivateBus.h"

#include "core/FileHandle.h"

#include <array>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tavrel::testing {

namespace {

using namespace std::chrono_literals;

/// A socket is there before anybody listens at it.
bool listens(const std::string& path) {
    const FileHandle socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

}  // namespace

PrivateBus::PrivateBus(const std::string& startableService) {
    sandbox_.text("services/test.service", "[D-BUS Service]\nName=" + startableService +
                                               "\nExec=/usr/bin/touch " + started().native() + "\n");
    const auto configuration = sandbox_.text(
        "bus.conf",
        "<busconfig><type>session</type><listen>" + address() + "</listen><servicedir>" +
            sandbox_.path("services").native() +
            "</servicedir><policy context=\"default\"><allow send_destination=\"*\"/>"
            "<allow receive_sender=\"*\"/><allow own=\"*\"/><allow user=\"*\"/></policy></busconfig>");
    std::string program = "dbus-daemon";
    std::string option = "--config-file=" + configuration.native();
    std::string stay = "--nofork";
    const std::array<char*, 4> arguments = {program.data(), option.data(), stay.data(), nullptr};
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    // As root it complains about limits that do not matter here.
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const int failure =
        ::posix_spawnp(&daemon_, program.c_str(), &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) throw std::runtime_error("dbus-daemon does not start");
    for (int tries = 0; !listens(sandbox_.path("bus")); ++tries) {
        if (tries == 1000) throw std::runtime_error("dbus-daemon does not listen");
        std::this_thread::sleep_for(10ms);
    }
}

std::string PrivateBus::address() const {
    return "unix:path=" + sandbox_.path("bus").native();
}

void PrivateBus::stop() {
    if (daemon_ < 0) return;
    ::kill(daemon_, SIGTERM);
    ::waitpid(daemon_, nullptr, 0);
    daemon_ = -1;
}

}  // namespace tavrel::testing
