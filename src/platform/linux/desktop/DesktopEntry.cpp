#include "platform/linux/desktop/DesktopEntry.h"

#include "core/Files.h"
#include "core/Text.h"

namespace tavrel {
namespace {

constexpr std::uintmax_t maximumBytes = 1 << 20;

/// Undoes the escapes that every value may hold. An unknown one stands as it is.
std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] != '\\' || at + 1 == value.size()) {
            text += value[at];
            continue;
        }
        const char code = value[++at];
        switch (code) {
            case 's':
                text += ' ';
                break;
            case 'n':
                text += '\n';
                break;
            case 't':
                text += '\t';
                break;
            case 'r':
                text += '\r';
                break;
            case '\\':
                text += '\\';
                break;
            default:
                text += {'\\', code};
        }
    }
    return text;
}

std::string escaped(std::string_view text) {
    std::string value;
    for (const char letter : text) {
        switch (letter) {
            case '\n':
                value += "\\n";
                break;
            case '\t':
                value += "\\t";
                break;
            case '\r':
                value += "\\r";
                break;
            case '\\':
                value += "\\\\";
                break;
            default:
                value += letter;
        }
    }
    return value;
}

}  // namespace

DesktopEntry DesktopEntry::parse(std::string_view text) {
    DesktopEntry entry;
    bool inGroup = false;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string line = Text::trimmed(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.starts_with('[')) inGroup = line == "[Desktop Entry]";
        const std::size_t equals = line.find('=');
        if (!inGroup || line.starts_with('#') || equals == std::string::npos) continue;
        entry.values_.emplace(Text::trimmed(line.substr(0, equals)),
                              unescaped(Text::trimmed(line.substr(equals + 1))));
    }
    return entry;
}

std::optional<DesktopEntry> DesktopEntry::read(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return std::nullopt;
    if (std::filesystem::file_size(file, error) > maximumBytes) return std::nullopt;
    const auto text = Files::read(file);
    if (!text) return std::nullopt;
    return parse(*text);
}

std::optional<std::string> DesktopEntry::value(const std::string& key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::string> DesktopEntry::command() const {
    std::vector<std::string> words;
    std::string word;
    bool started = false;
    bool quoted = false;
    const std::string line = value("Exec").value_or("");
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char letter = line[at];
        if (letter == '"') {
            quoted = !quoted;
            started = true;
        } else if (letter == ' ' && !quoted) {
            if (started) words.push_back(std::exchange(word, {}));
            started = false;
        } else {
            if (letter == '\\' && quoted && at + 1 < line.size()) ++at;
            word += line[at];
            started = true;
        }
    }
    if (started) words.push_back(word);
    return words;
}

std::string DesktopEntry::commandWord(std::string_view argument) {
    std::string word = "\"";
    for (const char letter : argument) {
        if (letter == '"' || letter == '`' || letter == '$' || letter == '\\') word += '\\';
        if (letter == '%') word += '%';
        word += letter;
    }
    return escaped(word + "\"");
}

}  // namespace tavrel
