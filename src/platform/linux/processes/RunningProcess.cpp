#include "platform/linux/processes/RunningProcess.h"

#include "core/Files.h"
#include "core/Paths.h"
#include "core/Text.h"

#include <optional>
#include <sstream>
#include <string_view>
#include <system_error>

namespace tavrel {
namespace {

using Path = std::filesystem::path;

/// Where a link of /proc leads; nothing for what is no file or has been deleted meanwhile.
std::optional<Path> target(const Path& link) {
    std::error_code failed;
    const Path path = std::filesystem::read_symlink(link, failed);
    if (failed || !path.is_absolute() || path.native().ends_with(" (deleted)")) return std::nullopt;
    return path;
}

std::string executableName(const Path& process) {
    constexpr std::string_view replaced = " (deleted)";  // an update took the file's place meanwhile
    std::error_code failed;
    std::string name = std::filesystem::read_symlink(process / "exe", failed).filename().native();
    if (name.ends_with(replaced)) name.resize(name.size() - replaced.size());
    return name;
}

std::vector<std::string> commandLine(const Path& process) {
    std::vector<std::string> words;
    std::istringstream text(Files::read(process / "cmdline").value_or(""));
    for (std::string word; std::getline(text, word, '\0');) words.push_back(std::move(word));
    return words;
}

/// The application of a Flatpak sandbox: the line "name=" of the group that /.flatpak-info begins with.
std::string flatpakIdentifier(const Path& process) {
    constexpr std::string_view key = "name=";
    std::istringstream lines(Files::read(process / "root/.flatpak-info").value_or(""));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(key)) return line.substr(key.size());
    }
    return {};
}

/// The package of "/snap/PACKAGE/REVISION/...".
std::string snapName(const Path& executable) {
    const auto parts = Paths::components(executable.native());
    return parts.size() > 2 && parts[0] == "snap" ? parts[1] : std::string();
}

void addUnlessEmpty(std::vector<std::string>& names, std::string name) {
    if (!name.empty()) names.push_back(std::move(name));
}

bool isKernelFile(const Path& path) {
    const std::string& text = path.native();
    return text.starts_with("/dev/") || text.starts_with("/proc/") || text.starts_with("/sys/");
}

}  // namespace

RunningProcess RunningProcess::read(const Path& folder) {
    RunningProcess process{.executable = executableName(folder)};
    addUnlessEmpty(process.names, Text::trimmed(Files::read(folder / "comm").value_or("")));
    addUnlessEmpty(process.names, flatpakIdentifier(folder));
    if (const auto executable = target(folder / "exe")) {
        addUnlessEmpty(process.names, snapName(*executable));
        process.files.push_back(*executable);
    }
    // A script's process runs its interpreter; the script is the first word behind it that is a path.
    const auto words = commandLine(folder);
    for (std::size_t i = 0; i < words.size() && i < 3; ++i) {
        const Path word = words[i];
        if (!word.is_absolute()) continue;
        process.names.push_back(Paths::name(word));
        process.files.push_back(Paths::standardized(word));
    }
    for (const std::string& number : Files::names(folder / "fd")) {
        const auto open = target(folder / "fd" / number);
        if (open && !isKernelFile(*open)) process.files.push_back(*open);
    }
    return process;
}

}  // namespace tavrel
