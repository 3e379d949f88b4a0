#include "cli/CardTable.h"

#include "cli/Columns.h"
#include "core/Text.h"

#include <algorithm>

namespace tavrel::cli {

namespace {

constexpr std::size_t gap = 2;
constexpr std::size_t mostTitleColumns = 20;
constexpr std::size_t leastFooterColumns = 34;  // of most: words go before graphs

std::size_t without(std::size_t columns, std::size_t taken) {
    return columns - std::min(columns, taken);
}

}  // namespace

void CardTable::add(const StatusTexts::MetricCard& card, const std::string& graph) {
    const char* between = card.unit.empty() || card.unit == "°C" ? "" : " ";
    const std::string footer = card.chip.empty() ? card.footer : card.footer + " · " + card.chip;
    rows_.push_back({card.title, card.value + between + card.unit, graph, footer});
}

std::vector<std::string> CardTable::lines(const Console& console) const {
    std::size_t titles = 0;
    std::size_t values = 0;
    for (const Row& row : rows_) {
        titles = std::max(titles, Text::columns(console.fitted(row.title, mostTitleColumns)) + gap);
        values = std::max(values, Text::columns(row.value) + gap);
    }
    values = std::min(values, without(console.width(), titles));
    std::size_t footers = without(console.width(), titles + values);
    const bool graphs = footers >= graphColumns + gap + leastFooterColumns;
    if (graphs) footers -= graphColumns + gap;

    std::vector<std::string> all;
    for (const Row& row : rows_) {
        const std::string title = console.fitted(row.title, titles - gap);
        const std::string value = console.fitted(row.value, values);
        std::string line = console.styled(Console::Style::dim, Columns::left(title, titles)) +
                           console.styled(Console::Style::strong, Columns::left(value, values));
        if (graphs) line += console.styled(Console::Style::mark, row.graph) + std::string(gap, ' ');
        all.push_back(line + console.fitted(row.footer, footers));
    }
    return all;
}

}  // namespace tavrel::cli
