#include "engine/Machine.h"

#include "platform/linux/figures/LinuxSensors.h"
#include "platform/linux/hwmon/HwmonFans.h"
#include "platform/linux/hwmon/HwmonTemperatures.h"
#include "platform/linux/processes/ProcProcesses.h"

namespace tavrel {

Machine Machine::running(const std::filesystem::path& home) {
    return {
        .sensors = linuxSensors(home),
        .temperatures = std::make_shared<HwmonTemperatures>("/sys"),
        .fans = std::make_shared<HwmonFans>("/sys"),
        .processes = std::make_shared<ProcProcesses>("/proc"),
    };
}

}  // namespace tavrel
