#include "platform/linux/graphics/GraphicsLoad.h"

#include "core/Files.h"
#include "platform/linux/kernel/Attributes.h"

#include <algorithm>

namespace tavrel {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

// A second more than drivers wait before they put an idle device to sleep.
constexpr auto timeToFallAsleep = 6s;

bool isAsleep(const fs::path& device) {
    const auto status = Attributes::text(device / "power/runtime_status");
    return status == "suspended" || status == "suspending";
}

bool mayFallAsleep(const fs::path& device) {
    return Attributes::text(device / "power/control") == "auto";
}

std::optional<double> amdLoad(const fs::path& device) {
    constexpr std::int64_t percent = 100;
    const auto busy = Attributes::number(device / "gpu_busy_percent");  // EBUSY while the device is reset
    if (!busy || *busy < 0 || *busy > percent) return std::nullopt;
    return static_cast<double>(*busy) / percent;
}

std::optional<double> larger(std::optional<double> a, std::optional<double> b) {
    return std::max(a, b);  // nothing is below every value
}

}  // namespace

GraphicsLoad::GraphicsLoad(const fs::path& sys, fs::path proc, std::unique_ptr<NvidiaLibrary> nvidia, Now now)
    : drivers_(sys / "bus/pci/drivers"),
      clients_(std::move(proc)),
      nvidia_(std::move(nvidia)),
      now_(std::move(now)) {}

std::optional<double> GraphicsLoad::busiest() {
    return larger(larger(busiestOf("amdgpu", amdLoad), busiestOfNvidia()), busiestOfIntel());
}

std::set<std::string> GraphicsLoad::awake(const std::string& driver) {
    std::set<std::string> devices;
    for (const std::string& name : Files::names(drivers_ / driver)) {
        // Addresses such as "0000:01:00.0"; "module", "bind" and the like stand beside them.
        if (std::count(name.begin(), name.end(), ':') != 2) continue;
        const fs::path device = drivers_ / driver / name;
        if (!isAsleep(device)) {
            devices.insert(name);
        } else {
            leftAloneUntil_.erase(device);
        }
    }
    return devices;
}

GraphicsLoad::Load GraphicsLoad::busiestOf(const std::string& driver, const Read& read) {
    Load busiest;
    for (const std::string& name : awake(driver)) {
        busiest = larger(busiest, loadOf(drivers_ / driver / name, read));
    }
    return busiest;
}

GraphicsLoad::Load GraphicsLoad::loadOf(const fs::path& device, const Read& read) {
    const auto leftAlone = leftAloneUntil_.find(device);
    if (leftAlone != leftAloneUntil_.end()) {
        if (now_() < leftAlone->second) return 0;
        leftAloneUntil_.erase(leftAlone);
    }
    const Load load = read(device);
    if (load == 0.0 && mayFallAsleep(device)) leftAloneUntil_[device] = now_() + timeToFallAsleep;
    return load;
}

GraphicsLoad::Load GraphicsLoad::busiestOfNvidia() {
    if (!nvidia_) return std::nullopt;
    bool keep = false;
    const Load busiest = busiestOf("nvidia", [&](const fs::path& device) {
        const Load load = nvidia_->load(device.filename().native());
        keep = keep || load != 0.0 || !mayFallAsleep(device);
        return load;
    });
    if (!keep) nvidia_->release();  // held, it would not fall asleep
    return busiest;
}

GraphicsLoad::Load GraphicsLoad::busiestOfIntel() {
    std::set<std::string> devices = awake("i915");
    devices.merge(awake("xe"));
    if (devices.empty()) return std::nullopt;
    return clients_.load(devices, now_());
}

}  // namespace tavrel
