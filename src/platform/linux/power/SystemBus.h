#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace tavrel {

/// A basic value of D-Bus; every integer and every kind of text is one.
using BusValue = std::variant<bool, std::int64_t, double, std::string>;
using BusProperties = std::map<std::string, BusValue>;

struct BusObject {
    std::string service;
    std::string path;
    std::string interface;
};

/// Questions to services of the system. The connection is made with the first one and kept. No question
/// starts a service or takes longer than a tenth of a second; after one that did, or where there is no bus,
/// there is silence for a minute, so that a hanging service is not felt. One thread at a time.
class SystemBus {
  public:
    using Time = std::chrono::steady_clock::time_point;
    using Now = std::function<Time()>;

    /// As D-Bus writes addresses; an empty one leads nowhere.
    explicit SystemBus(std::string address, Now now = std::chrono::steady_clock::now);

    /// Where the system's bus listens, unless the environment names another place.
    [[nodiscard]] static std::string systemAddress();

    /// Those that are no basic value are left out.
    [[nodiscard]] std::optional<BusProperties> properties(const BusObject& object);
    /// What a method without parameters gives that answers with a list of objects.
    [[nodiscard]] std::optional<std::vector<std::string>> objects(const BusObject& object,
                                                                  const std::string& method);

  private:
    struct Close {
        void operator()(sd_bus* bus) const;
        void operator()(sd_bus_message* message) const;
    };
    using Connection = std::unique_ptr<sd_bus, Close>;
    using Message = std::unique_ptr<sd_bus_message, Close>;

    [[nodiscard]] bool isConnected();
    [[nodiscard]] Connection connect() const;
    [[nodiscard]] Message ask(const BusObject& object, const std::string& interface,
                              const std::string& method, const std::vector<std::string>& arguments);
    void startBackoff();

    std::string address_;
    Now now_;
    Connection connection_;
    std::optional<Time> retryAfter_;
};

/// The value under a name if it is of that kind.
template <typename Kind>
[[nodiscard]] std::optional<Kind> valueOf(const BusProperties& properties, const std::string& name) {
    const auto found = properties.find(name);
    if (found == properties.end() || !std::holds_alternative<Kind>(found->second)) return std::nullopt;
    return std::get<Kind>(found->second);
}

}  // namespace tavrel
