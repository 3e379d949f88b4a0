#include "models/program/AppTab.h"

#include "core/Text.h"

namespace tavrel {

namespace {

struct Row {
    AppTab value{};
    std::string_view raw;
    Text::English title;
};

constexpr EnumTable<Row, allAppTabs.size()> table = {{
    {AppTab::clean, "clean", "Clean"},
    {AppTab::apps, "apps", "Apps"},
    {AppTab::optimize, "optimize", "Optimize"},
    {AppTab::analyze, "analyze", "Analyze"},
    {AppTab::status, "status", "Status"},
}};

}  // namespace

std::string_view rawValue(AppTab tab) {
    return table[tab].raw;
}

std::string title(AppTab tab) {
    return Text::localized(table[tab].title);
}

}  // namespace tavrel
