#pragma once

#include "platform/linux/graphics/DrmClient.h"

#include <chrono>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tavrel {

/// How busy this user's programs keep graphics devices whose driver has no figure of its own (Intel's).
/// Looking through the handles of every process costs much, so each call looks through a bounded number and
/// remembers the handles it has found: a program that has just begun to draw is seen some calls later.
class DrmClients {
  public:
    using Time = std::chrono::steady_clock::time_point;

    explicit DrmClients(std::filesystem::path proc) : proc_(std::move(proc)) {}

    /// The busiest of `devices` since the last call, 0 to 1. A call with none before
    /// it, or none lately, has nothing to compare with.
    [[nodiscard]] std::optional<double> load(const std::set<std::string>& devices, Time now);

  private:
    using Key = std::pair<std::string, std::string>;  // device, client

    void lookForHandles();
    [[nodiscard]] std::map<Key, DrmClient> readClients(const std::set<std::string>& devices);

    std::filesystem::path proc_;
    std::set<std::filesystem::path> handles_;  // files of fdinfo
    std::vector<std::string> processes_;       // still to be looked through
    std::map<Key, DrmClient> before_;
    std::optional<Time> readAt_;
};

}  // namespace tavrel
