#pragma once

#include "platform/FanReader.h"
#include "platform/ProcessSource.h"
#include "platform/Sensors.h"
#include "platform/TemperatureReader.h"

#include <filesystem>
#include <memory>

namespace tavrel {

/// The readers of one machine. None of them is ever absent.
struct Machine {
    std::shared_ptr<Sensors> sensors;
    std::shared_ptr<TemperatureReader> temperatures;
    std::shared_ptr<FanReader> fans;
    std::shared_ptr<ProcessSource> processes;

    /// The one that the program runs on; the disk space is that of the volume of `home`.
    [[nodiscard]] static Machine running(const std::filesystem::path& home);
};

}  // namespace tavrel
