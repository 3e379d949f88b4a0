#include "platform/linux/hwmon/Hwmon.h"

#include "core/Files.h"
#include "platform/linux/kernel/Attributes.h"

#include <algorithm>
#include <charconv>

namespace tavrel::Hwmon {
namespace {

using Path = std::filesystem::path;

}  // namespace

std::vector<Chip> chips(const Path& sysRoot) {
    const Path all = sysRoot / "class/hwmon";
    std::vector<Chip> found;
    for (const std::string& entry : Files::names(all)) {
        std::error_code error;
        Path folder = std::filesystem::canonical(all / entry, error);
        if (error) continue;
        std::string name = Attributes::text(folder / "name").value_or("");
        if (!name.empty()) found.push_back({std::move(folder), std::move(name)});
    }
    std::sort(found.begin(), found.end(), [](const Chip& a, const Chip& b) { return a.folder < b.folder; });
    return found;
}

std::vector<int> inputs(const Path& folder, std::string_view kind) {
    std::vector<int> found;
    for (const std::string& name : Files::names(folder)) {
        if (!name.starts_with(kind)) continue;
        int number = 0;
        const char* const end = name.data() + name.size();
        const auto [rest, error] = std::from_chars(name.data() + kind.size(), end, number);
        if (error == std::errc() && std::string_view(rest, end) == "_input") found.push_back(number);
    }
    std::sort(found.begin(), found.end());
    return found;
}

Path file(const Path& folder, std::string_view kind, int number, std::string_view suffix) {
    return folder / std::string(kind).append(std::to_string(number)).append(suffix);
}

FileHandle powerState(const Path& folder) {
    return Attributes::open(folder / "device/power/runtime_status");
}

bool sleeps(const FileHandle& powerState) {
    return Attributes::text(powerState).value_or("").starts_with("suspend");  // "suspended", "suspending"
}

}  // namespace tavrel::Hwmon
