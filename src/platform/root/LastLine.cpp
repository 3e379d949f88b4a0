#include "platform/root/LastLine.h"

#include "core/Text.h"

#include <regex>

namespace tavrel {
namespace {

/// `line` without the codes that colour a terminal and without other control characters.
std::string plain(const std::string& line) {
    static const std::regex codes("\x1b\\[[0-9;?]*[@-~]");
    std::string text = std::regex_replace(line, codes, "");
    std::erase_if(text, [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; });
    return Text::trimmed(text);
}

constexpr std::size_t longestForPeople = 500;

/// Whether a library of the desktop wrote the line for developers.
bool isWarningOfALibrary(const std::string& line) {
    static const std::regex warning(R"(^(\*\* )?\([^()]*:\d+\): .*)");
    return std::regex_match(line, warning);
}

}  // namespace

std::string lastLine(std::string_view output) {
    while (!output.empty()) {
        const std::size_t end = output.find_last_of("\r\n");
        const std::size_t begin = end == std::string_view::npos ? 0 : end + 1;
        const std::string_view raw = output.substr(begin);
        if (raw.size() <= longestForPeople) {
            std::string line = plain(std::string(raw));
            if (!line.empty() && !isWarningOfALibrary(line)) return line;
        }
        output = output.substr(0, begin == 0 ? 0 : end);
    }
    return {};
}

}  // namespace tavrel
