#pragma once

#include "platform/linux/power/SystemBus.h"

#include <atomic>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace tavrel::testing {

/// A service on a message bus with the properties of its objects. It counts the questions.
class PlayedService {
  public:
    using Objects = std::map<std::string, BusProperties>;

    /// `devices` is what "EnumerateDevices" answers.
    PlayedService(const std::string& address, const std::string& name, Objects objects,
                  std::vector<std::string> devices = {});
    ~PlayedService();
    PlayedService(const PlayedService&) = delete;
    PlayedService& operator=(const PlayedService&) = delete;

    /// From now on questions are read and not answered.
    void hang() { hangs_ = true; }
    [[nodiscard]] int questions() const { return questions_; }

  private:
    static int answer(sd_bus_message* question, void* self, void* error);
    void reply(sd_bus_message* question) const;

    Objects objects_;
    std::vector<std::string> devices_;
    sd_bus* bus_ = nullptr;
    std::atomic<bool> hangs_ = false;
    std::atomic<bool> ends_ = false;
    std::atomic<int> questions_ = 0;
    std::thread thread_;
};

}  // namespace tavrel::testing
