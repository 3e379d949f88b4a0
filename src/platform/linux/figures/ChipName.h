#pragma once

#include <string>
#include <string_view>

/// What the processor is called.
namespace tavrel::ChipName {

/// From /proc/cpuinfo, as given for the first processor; empty where none does. Kernels for ARM give the
/// model of the chip here or nowhere.
[[nodiscard]] std::string inProcessors(std::string_view cpuinfo);

/// The maker of an ARM core, by the register that /proc/cpuinfo shows; empty when unknown.
[[nodiscard]] std::string makerInProcessors(std::string_view cpuinfo);

/// As people would say it: without trade marks, clock rate, number of cores and the word for what it is.
[[nodiscard]] std::string tidied(std::string_view name);

}  // namespace tavrel::ChipName
