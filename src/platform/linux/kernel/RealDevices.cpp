#include "platform/linux/kernel/RealDevices.h"

#include "core/Files.h"

#include <algorithm>

namespace tavrel {

namespace {

bool hasDevice(const std::filesystem::path& folder, std::string name) {
    if (name.empty() || name == "." || name == ".." || name.find('\0') != std::string::npos) return false;
    std::replace(name.begin(), name.end(), '/', '!');  // as sysfs names "cciss/c0d0"
    return Files::exists(folder / name / "device");
}

}  // namespace

bool RealDevices::isReal(std::size_t row, std::string_view name) {
    if (row >= answers_.size()) answers_.resize(row + 1);
    Answer& answer = answers_[row];
    if (answer.name != name) answer = {std::string(name), hasDevice(folder_, std::string(name))};
    return answer.real;
}

}  // namespace tavrel
