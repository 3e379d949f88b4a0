#include "cli/Columns.h"

#include "core/Text.h"

#include <algorithm>

namespace tavrel::cli::Columns {

namespace {

std::string spaces(const std::string& text, std::size_t columns) {
    return std::string(columns - std::min(columns, Text::columns(text)), ' ');
}

}  // namespace

std::string left(const std::string& text, std::size_t columns) {
    return text + spaces(text, columns);
}

std::string right(const std::string& text, std::size_t columns) {
    return spaces(text, columns) + text;
}

}  // namespace tavrel::cli::Columns
