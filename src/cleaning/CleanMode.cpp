#include "cleaning/CleanMode.h"

#include "core/Text.h"

namespace tavrel::CleanModes {

namespace {

struct Row {
    std::string_view rawValue;
    Text::English title;
    std::string_view action;
};

constexpr std::array<Row, allCases.size()> rows = {{
    {"system", "System", "clean"},
    {"ai", "AI", "ai"},
    {"projects", "Projects", "purge"},
    {"installers", "Installers", "installers"},
}};

const Row& row(CleanMode mode) {
    return rows[static_cast<std::size_t>(mode)];
}

}  // namespace

std::string_view rawValue(CleanMode mode) {
    return row(mode).rawValue;
}

std::optional<CleanMode> fromRawValue(std::string_view text) {
    for (const CleanMode mode : allCases) {
        if (rawValue(mode) == text) return mode;
    }
    return std::nullopt;
}

std::string title(CleanMode mode) {
    return Text::localized(row(mode).title);
}

std::string_view action(CleanMode mode) {
    return row(mode).action;
}

std::string_view knownWord(std::string_view word) {
    // "clean" is the command's own name, and the other words are those of their modes.
    return word == action(CleanMode::projects) ? rawValue(CleanMode::projects) : word;
}

}  // namespace tavrel::CleanModes
