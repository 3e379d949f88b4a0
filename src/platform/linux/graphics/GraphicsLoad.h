#pragma once

#include "platform/linux/graphics/DrmClients.h"
#include "platform/linux/graphics/NvidiaLibrary.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace tavrel {

/// How busy the graphics devices are. Of a sleeping device nothing is opened but its power state, since any
/// question wakes it; and as a question also starts the time anew after which an idle device falls asleep,
/// one that was found idle is left alone for as long.
class GraphicsLoad {
  public:
    using Now = std::function<DrmClients::Time()>;

    /// `nvidia` may be missing.
    GraphicsLoad(const std::filesystem::path& sys, std::filesystem::path proc,
                 std::unique_ptr<NvidiaLibrary> nvidia, Now now);

    /// The load of the busiest device, 0 to 1; nullopt if none reports one.
    [[nodiscard]] std::optional<double> busiest();

  private:
    using Load = std::optional<double>;
    using Read = std::function<Load(const std::filesystem::path& device)>;

    /// The devices of a driver that are awake.
    [[nodiscard]] std::set<std::string> awake(const std::string& driver);
    /// The busiest of a driver's devices, those left alone counting as idle.
    [[nodiscard]] Load busiestOf(const std::string& driver, const Read& read);
    [[nodiscard]] Load loadOf(const std::filesystem::path& device, const Read& read);
    [[nodiscard]] Load busiestOfNvidia();
    [[nodiscard]] Load busiestOfIntel();

    std::filesystem::path drivers_;
    DrmClients clients_;
    std::unique_ptr<NvidiaLibrary> nvidia_;
    Now now_;
    std::map<std::filesystem::path, DrmClients::Time> leftAloneUntil_;
};

}  // namespace tavrel
