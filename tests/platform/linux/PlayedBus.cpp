#include "PlayedBus.h"

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
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace tavrel::testing {

namespace {

using namespace std::chrono_literals;

void append(sd_bus_message* message, const BusValue& value) {
    if (const bool* truth = std::get_if<bool>(&value)) {
        sd_bus_message_append(message, "v", "b", static_cast<int>(*truth));
    } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
        // Small ones as UPower gives its kinds, large ones as it gives times.
        *number < 100 ? sd_bus_message_append(message, "v", "u", static_cast<std::uint32_t>(*number))
                      : sd_bus_message_append(message, "v", "x", *number);
    } else if (const double* fraction = std::get_if<double>(&value)) {
        sd_bus_message_append(message, "v", "d", *fraction);
    } else {
        sd_bus_message_append(message, "v", "s", std::get<std::string>(value).c_str());
    }
}

void appendAll(sd_bus_message* message, const BusProperties& properties) {
    sd_bus_message_open_container(message, 'a', "{sv}");
    // What is no basic value stands among the others on a real bus as well.
    sd_bus_message_append(message, "{sv}", "History", "a(ud)", 1, 7, 0.5);
    for (const auto& [name, value] : properties) {
        sd_bus_message_open_container(message, 'e', "sv");
        sd_bus_message_append(message, "s", name.c_str());
        append(message, value);
        sd_bus_message_close_container(message);
    }
    sd_bus_message_close_container(message);
}

/// A socket is there before anybody listens at it.
bool listens(const std::string& path) {
    const FileHandle socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

}  // namespace

PlayedBus::PlayedBus(const std::string& startableService) {
    sandbox_.text("services/played.service", "[D-BUS Service]\nName=" + startableService +
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
    if (failure != 0) {
        throw std::runtime_error("dbus-daemon does not start");
    }
    for (int tries = 0; !listens(sandbox_.path("socket")); ++tries) {
        if (tries == 1000) throw std::runtime_error("dbus-daemon does not listen");
        std::this_thread::sleep_for(10ms);
    }
}

PlayedBus::~PlayedBus() {
    ::kill(daemon_, SIGTERM);
    ::waitpid(daemon_, nullptr, 0);
}

std::string PlayedBus::address() const {
    return "unix:path=" + sandbox_.path("socket").native();
}

PlayedService::PlayedService(const std::string& address, const std::string& name, Objects objects,
                             std::vector<std::string> devices)
    : objects_(std::move(objects)), devices_(std::move(devices)) {
    const auto handler = [](sd_bus_message* question, void* self, sd_bus_error* error) {
        return answer(question, self, error);
    };
    if (sd_bus_new(&bus_) < 0 || sd_bus_set_address(bus_, address.c_str()) < 0 ||
        sd_bus_set_bus_client(bus_, 1) < 0 || sd_bus_start(bus_) < 0 ||
        sd_bus_add_filter(bus_, nullptr, handler, this) < 0 ||
        sd_bus_request_name(bus_, name.c_str(), 0) < 0) {
        throw std::runtime_error("no service on the bus");
    }
    thread_ = std::thread([this] {
        while (!ends_) {
            if (sd_bus_process(bus_, nullptr) == 0) sd_bus_wait(bus_, 10'000);
        }
    });
}

PlayedService::~PlayedService() {
    ends_ = true;
    thread_.join();
    sd_bus_flush_close_unref(bus_);
}

int PlayedService::answer(sd_bus_message* question, void* self, void* /*error*/) {
    auto* service = static_cast<PlayedService*>(self);
    if (sd_bus_message_is_method_call(question, nullptr, nullptr) <= 0) return 0;
    ++service->questions_;
    if (!service->hangs_) service->reply(question);
    return 1;
}

void PlayedService::reply(sd_bus_message* question) const {
    const std::string method = sd_bus_message_get_member(question);
    const auto object = objects_.find(sd_bus_message_get_path(question));
    sd_bus_message* answer = nullptr;
    sd_bus_message_new_method_return(question, &answer);
    if (method == "EnumerateDevices") {
        sd_bus_message_open_container(answer, 'a', "o");
        for (const std::string& device : devices_) sd_bus_message_append(answer, "o", device.c_str());
        sd_bus_message_close_container(answer);
    } else if (method == "GetAll" && object != objects_.end()) {
        appendAll(answer, object->second);
    } else if (method == "Get" && object != objects_.end()) {
        const char* interface = nullptr;
        const char* name = nullptr;
        sd_bus_message_read(question, "ss", &interface, &name);
        const auto value = object->second.find(name);
        append(answer, value == object->second.end() ? BusValue(std::string()) : value->second);
    } else {
        sd_bus_reply_method_errorf(question, SD_BUS_ERROR_UNKNOWN_OBJECT, "No such object");
        sd_bus_message_unref(answer);
        return;
    }
    sd_bus_send(nullptr, answer, nullptr);
    sd_bus_message_unref(answer);
}

}  // namespace tavrel::testing
