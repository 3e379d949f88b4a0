#include "PlayedService.h"

#include <stdexcept>
#include <systemd/sd-bus.h>

namespace tavrel::testing {

namespace {

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

}  // namespace

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
