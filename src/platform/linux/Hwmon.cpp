#include "platform/linux/Hwmon.h"

#include "core/Files.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fcntl.h>
#include <unistd.h>

namespace tavrel::Hwmon {
namespace {

using Path = std::filesystem::path;

constexpr std::size_t longestLine = 128;  // names, labels and figures are far shorter

}  // namespace

std::vector<Chip> chips(const Path& sysRoot) {
    const Path all = sysRoot / "class/hwmon";
    std::vector<Chip> found;
    for (const std::string& entry : Files::names(all)) {
        std::error_code error;
        Path folder = std::filesystem::canonical(all / entry, error);
        if (error) continue;
        std::string name = text(open(folder / "name"));
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
    return open(folder / "device/power/runtime_status");
}

bool sleeps(const FileHandle& powerState) {
    return text(powerState).starts_with("suspend");  // "suspended", "suspending"
}

FileHandle open(const Path& path) {
    return FileHandle(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

std::string text(const FileHandle& file) {
    std::array<char, longestLine> line;
    const ssize_t length = ::pread(file.get(), line.data(), line.size(), 0);
    if (length <= 0) return {};
    const std::string_view read(line.data(), static_cast<std::size_t>(length));
    return std::string(read.substr(0, read.find('\n')));
}

std::optional<std::int64_t> number(const FileHandle& file) {
    const std::string line = text(file);
    std::int64_t value = 0;
    const char* const end = line.data() + line.size();
    const auto [rest, error] = std::from_chars(line.data(), end, value);
    if (error != std::errc() || rest != end) return std::nullopt;
    return value;
}

}  // namespace tavrel::Hwmon
