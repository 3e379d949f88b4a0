#include "cleaning/CleanMode.h"

#include "core/Text.h"

namespace tavrel::CleanModes {

namespace {

struct Row {
    CleanMode value{};
    std::string_view raw;
    Text::English title;
    std::string_view action;
};

constexpr EnumTable<Row, allCases.size()> table = {{
    {CleanMode::system, "system", "System", "clean"},
    {CleanMode::ai, "ai", "AI", "ai"},
    {CleanMode::projects, "projects", "Projects", "purge"},
    {CleanMode::installers, "installers", "Installers", "installers"},
}};

}  // namespace

std::string_view rawValue(CleanMode mode) {
    return table[mode].raw;
}

std::optional<CleanMode> fromRawValue(std::string_view text) {
    return table.find(text);
}

std::string title(CleanMode mode) {
    return Text::localized(table[mode].title);
}

std::string_view action(CleanMode mode) {
    return table[mode].action;
}

std::string_view knownWord(std::string_view word) {
    // "clean" is the command's own name, and the other words are those of their modes.
    return word == action(CleanMode::projects) ? rawValue(CleanMode::projects) : word;
}

}  // namespace tavrel::CleanModes
