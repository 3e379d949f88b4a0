#include "platform/linux/graphics/LoadedNvidiaLibrary.h"

#include <dlfcn.h>

namespace tavrel {

namespace {

constexpr int success = 0;
constexpr unsigned attachToNone = 2;  // else the beginning wakes every device

template <typename Function>
void find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(library, name));
}

}  // namespace

LoadedNvidiaLibrary::~LoadedNvidiaLibrary() {
    release();
    if (library_ != nullptr) ::dlclose(library_);
}

std::optional<double> LoadedNvidiaLibrary::load(const std::string& device) {
    if (!holdDevices()) return std::nullopt;
    Device found = nullptr;
    Utilization utilization;
    if (find_(device.c_str(), &found) != success || utilization_(found, &utilization) != success) {
        return std::nullopt;
    }
    constexpr unsigned percent = 100;
    if (utilization.graphics > percent) return std::nullopt;
    return static_cast<double>(utilization.graphics) / percent;
}

void LoadedNvidiaLibrary::release() {
    if (holding_) static_cast<void>(end_());
    holding_ = false;
}

void LoadedNvidiaLibrary::findFunctions() {
    if (looked_) return;
    looked_ = true;
    library_ = ::dlopen("libnvidia-ml.so.1", RTLD_NOW | RTLD_LOCAL);
    if (library_ == nullptr) return;
    find(library_, "nvmlInitWithFlags", begin_);
    find(library_, "nvmlShutdown", end_);
    find(library_, "nvmlDeviceGetHandleByPciBusId_v2", find_);
    find(library_, "nvmlDeviceGetUtilizationRates", utilization_);
}

bool LoadedNvidiaLibrary::holdDevices() {
    findFunctions();
    const bool complete = begin_ != nullptr && end_ != nullptr && find_ != nullptr && utilization_ != nullptr;
    if (complete && !holding_) holding_ = begin_(attachToNone) == success;
    return holding_;
}

}  // namespace tavrel
