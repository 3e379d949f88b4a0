#include "platform/macos/Scripts.h"

#include <charconv>
#include <optional>

#include <fmt/format.h>

namespace tavrel::Scripts {
namespace {

constexpr std::string_view marker = "__TAVREL_DONE__";

/// The first line of `text`, which is cut off it. A line ends at a newline, a carriage return (the
/// scripting tool of macOS prints those) or both.
std::string_view takeLine(std::string_view& text) {
    const std::size_t end = text.find_first_of("\r\n");
    const std::string_view line = text.substr(0, end);
    if (end == std::string_view::npos) {
        text = {};
    } else {
        text.remove_prefix(text.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
    }
    return line;
}

struct MarkerLine {
    std::string_view before;  // what a command wrote last, when it did not end its line
    std::string_view identifier;
    std::int32_t status = 0;
};

std::optional<MarkerLine> markerLine(std::string_view line) {
    const std::size_t start = line.rfind(marker);
    if (start == std::string_view::npos) return std::nullopt;
    std::string_view words = line.substr(start + marker.size());
    if (!words.starts_with(' ')) return std::nullopt;
    words.remove_prefix(1);
    const std::size_t space = words.find(' ');
    if (space == 0 || space == std::string_view::npos) return std::nullopt;

    MarkerLine found{line.substr(0, start), words.substr(0, space)};
    const std::string_view status = words.substr(space + 1);
    const auto [end, error] = std::from_chars(status.data(), status.data() + status.size(), found.status);
    if (error != std::errc{} || end != status.data() + status.size()) return std::nullopt;
    return found;
}

}  // namespace

std::string statusBatch(const std::vector<std::string>& commands) {
    std::string script = "status=0; ";
    for (const std::string& command : commands) script += command + " || status=1; ";
    return script + "exit $status";
}

std::string markerBatch(const std::vector<Step>& steps) {
    std::string script;
    for (const Step& step : steps) {
        if (!script.empty()) script += "; ";
        script += fmt::format("{{ {} ; }} 2>&1; echo \"{} {} $?\"", step.command, marker, step.identifier);
    }
    return script;
}

std::vector<StepResult> markerResults(std::string_view output) {
    std::vector<StepResult> results;
    std::string lines;
    const auto keep = [&lines](std::string_view line) {
        if (!lines.empty()) lines += '\n';
        lines += line;
    };
    while (!output.empty()) {
        const std::string_view line = takeLine(output);
        const std::optional<MarkerLine> done = markerLine(line);
        if (!done) {
            keep(line);
            continue;
        }
        if (!done->before.empty()) keep(done->before);
        results.push_back({std::string(done->identifier), done->status, std::move(lines)});
        lines.clear();
    }
    return results;
}

}  // namespace tavrel::Scripts
