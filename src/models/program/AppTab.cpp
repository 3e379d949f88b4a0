#include "models/program/AppTab.h"

#include "core/Text.h"

namespace tavrel {

namespace {

struct Row {
    std::string_view rawValue;
    Text::English title;
};

constexpr std::array<Row, allAppTabs.size()> rows = {{
    {"clean", "Clean"},
    {"apps", "Apps"},
    {"optimize", "Optimize"},
    {"analyze", "Analyze"},
    {"status", "Status"},
}};

const Row& row(AppTab tab) {
    return rows[static_cast<std::size_t>(tab)];
}

}  // namespace

std::string_view rawValue(AppTab tab) {
    return row(tab).rawValue;
}

std::string title(AppTab tab) {
    return Text::localized(row(tab).title);
}

}  // namespace tavrel
