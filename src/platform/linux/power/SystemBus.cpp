#include "platform/linux/power/SystemBus.h"

#include <cerrno>
#include <cstdlib>
#include <systemd/sd-bus.h>
#include <utility>

namespace tavrel {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::microseconds limit = 100ms;
constexpr auto silence = 60s;
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";

/// The basic value that comes next, left empty for what is none. Negative when the message is broken.
int readBasic(sd_bus_message* message, char type, std::optional<BusValue>& value) {
    const auto as = [&]<typename Read, typename Kind>(Read read, Kind) {
        const int result = sd_bus_message_read_basic(message, type, &read);
        if (result > 0) value = static_cast<Kind>(read);
        return result;
    };
    switch (type) {
        case 'b':
            return as(int{}, bool{});
        case 'y':
            return as(std::uint8_t{}, std::int64_t{});
        case 'n':
            return as(std::int16_t{}, std::int64_t{});
        case 'q':
            return as(std::uint16_t{}, std::int64_t{});
        case 'i':
            return as(std::int32_t{}, std::int64_t{});
        case 'u':
            return as(std::uint32_t{}, std::int64_t{});
        case 'x':
            return as(std::int64_t{}, std::int64_t{});
        case 't':
            return as(std::uint64_t{}, std::int64_t{});
        case 'd':
            return as(double{}, double{});
        case 's':
        case 'o':
        case 'g': {
            const char* text = nullptr;
            const int result = sd_bus_message_read_basic(message, type, &text);
            if (result > 0) value = std::string(text);
            return result;
        }
        default:
            return 0;
    }
}

int readVariant(sd_bus_message* message, std::optional<BusValue>& value) {
    char type = 0;
    const char* contents = nullptr;
    int result = sd_bus_message_peek_type(message, &type, &contents);
    if (result <= 0 || type != SD_BUS_TYPE_VARIANT) return -EBADMSG;
    const std::string kind = contents;
    if (kind.size() != 1 || kind == "v" || kind == "h") return sd_bus_message_skip(message, "v");
    result = sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, kind.c_str());
    if (result >= 0) result = readBasic(message, kind.front(), value);
    return result < 0 ? result : sd_bus_message_exit_container(message);
}

/// Positive while there are entries.
int readEntry(sd_bus_message* message, BusProperties& properties) {
    int result = sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv");
    if (result <= 0) return result;
    const char* name = nullptr;
    std::optional<BusValue> value;
    result = sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &name);
    if (result > 0) result = readVariant(message, value);
    if (result < 0) return result;
    if (value) properties.insert_or_assign(name, std::move(*value));
    result = sd_bus_message_exit_container(message);
    return result < 0 ? result : 1;
}

}  // namespace

void SystemBus::Close::operator()(sd_bus* bus) const {
    sd_bus_close_unref(bus);
}

void SystemBus::Close::operator()(sd_bus_message* message) const {
    sd_bus_message_unref(message);
}

SystemBus::SystemBus(std::string address, Now now) : address_(std::move(address)), now_(std::move(now)) {}

std::string SystemBus::systemAddress() {
    const char* named = std::getenv("DBUS_SYSTEM_BUS_ADDRESS");
    return named != nullptr && *named != '\0' ? named : "unix:path=/run/dbus/system_bus_socket";
}

std::optional<BusProperties> SystemBus::properties(const BusObject& object) {
    const Message reply = ask(object, propertiesInterface, "GetAll", {object.interface});
    if (!reply || sd_bus_message_enter_container(reply.get(), SD_BUS_TYPE_ARRAY, "{sv}") < 0) {
        return std::nullopt;
    }
    BusProperties properties;
    int result = 1;
    while (result > 0) result = readEntry(reply.get(), properties);
    if (result < 0) return std::nullopt;
    return properties;
}

std::optional<std::vector<std::string>> SystemBus::objects(const BusObject& object,
                                                           const std::string& method) {
    const Message reply = ask(object, object.interface, method, {});
    if (!reply || sd_bus_message_enter_container(reply.get(), SD_BUS_TYPE_ARRAY, "o") < 0) {
        return std::nullopt;
    }
    std::vector<std::string> paths;
    const char* path = nullptr;
    int result = 0;
    while ((result = sd_bus_message_read_basic(reply.get(), SD_BUS_TYPE_OBJECT_PATH, &path)) > 0) {
        paths.emplace_back(path);
    }
    if (result < 0) return std::nullopt;
    return paths;
}

bool SystemBus::isConnected() {
    if (address_.empty() || (retryAfter_ && now_() < *retryAfter_)) return false;
    retryAfter_.reset();
    if (!connection_) connection_ = connect();
    if (!connection_) startBackoff();
    return connection_ != nullptr;
}

SystemBus::Connection SystemBus::connect() const {
    sd_bus* made = nullptr;
    if (sd_bus_new(&made) < 0) return nullptr;
    Connection bus(made);
    if (sd_bus_set_address(made, address_.c_str()) < 0 || sd_bus_set_bus_client(made, 1) < 0 ||
        sd_bus_start(made) < 0) {
        return nullptr;
    }
    // The first call would wait for the greetings without a limit of its own.
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (sd_bus_is_ready(made) == 0) {
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left <= 0us) return nullptr;
        const int progress = sd_bus_process(made, nullptr);
        if (progress < 0) return nullptr;
        if (progress == 0 && sd_bus_wait(made, static_cast<std::uint64_t>(left.count())) < 0) return nullptr;
    }
    return sd_bus_is_ready(made) > 0 ? std::move(bus) : nullptr;
}

SystemBus::Message SystemBus::ask(const BusObject& object, const std::string& interface,
                                  const std::string& method, const std::vector<std::string>& arguments) {
    if (!isConnected()) return nullptr;
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(connection_.get(), &made, object.service.c_str(), object.path.c_str(),
                                       interface.c_str(), method.c_str()) < 0) {
        return nullptr;
    }
    const Message question(made);
    if (sd_bus_message_set_auto_start(made, 0) < 0) return nullptr;
    for (const std::string& argument : arguments) {
        if (sd_bus_message_append_basic(made, SD_BUS_TYPE_STRING, argument.c_str()) < 0) return nullptr;
    }
    sd_bus_message* reply = nullptr;
    const int result =
        sd_bus_call(connection_.get(), made, static_cast<std::uint64_t>(limit.count()), nullptr, &reply);
    if (result >= 0) return Message(reply);
    // Else the service is not there, or does not know the object, which it says at once.
    if (result == -ETIMEDOUT || sd_bus_is_open(connection_.get()) <= 0) startBackoff();
    return nullptr;
}

void SystemBus::startBackoff() {
    connection_.reset();
    retryAfter_ = now_() + silence;
}

}  // namespace tavrel
