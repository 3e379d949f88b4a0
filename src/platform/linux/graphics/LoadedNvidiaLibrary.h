#pragma once

#include "platform/linux/graphics/NvidiaLibrary.h"

namespace tavrel {

/// The library that came with the driver, loaded when it is first asked; a machine without it has no values.
class LoadedNvidiaLibrary final : public NvidiaLibrary {
  public:
    LoadedNvidiaLibrary() = default;
    ~LoadedNvidiaLibrary() override;
    LoadedNvidiaLibrary(const LoadedNvidiaLibrary&) = delete;
    LoadedNvidiaLibrary& operator=(const LoadedNvidiaLibrary&) = delete;

    [[nodiscard]] std::optional<double> load(const std::string& device) override;
    void release() override;

  private:
    struct Utilization {
        unsigned graphics = 0;
        unsigned memory = 0;
    };
    using Device = void*;

    void findFunctions();
    [[nodiscard]] bool holdDevices();

    void* library_ = nullptr;
    bool looked_ = false;
    bool holding_ = false;
    int (*begin_)(unsigned) = nullptr;
    int (*end_)() = nullptr;
    int (*find_)(const char*, Device*) = nullptr;
    int (*utilization_)(Device, Utilization*) = nullptr;
};

}  // namespace tavrel
