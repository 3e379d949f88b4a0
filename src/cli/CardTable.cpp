#include "cli/CardTable.h"

#include "cli/Columns.h"
#include "core/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace tavrel::cli {

namespace {

constexpr std::size_t gap = 2;
constexpr std::size_t graphColumns = 12;
constexpr std::size_t mostTitleColumns = 20;
constexpr std::size_t leastRemarkColumns = 34;  // of most: words go before graphs

struct Row {
    std::string title;
    std::string value;
    std::string graph;
    std::string remark;
};

/// The last values of a history, a column each.
std::string sparkline(const std::vector<double>& history) {
    constexpr std::array levels = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    const std::size_t count = std::min(history.size(), graphColumns);
    std::string line(graphColumns - count, ' ');
    for (std::size_t i = history.size() - count; i < history.size(); ++i) {
        const double share = std::clamp(history[i], 0.0, 1.0);
        line += levels.at(static_cast<std::size_t>(std::lround(share * (levels.size() - 1))));
    }
    return line;
}

std::string meter(double share) {
    const auto filled = static_cast<std::size_t>(std::lround(std::clamp(share, 0.0, 1.0) * graphColumns));
    std::string line;
    for (std::size_t i = 0; i < graphColumns; ++i) line += i < filled ? "█" : "░";
    return line;
}

std::string joined(const std::string& first, const std::string& second) {
    return first + (first.empty() || second.empty() ? "" : " · ") + second;
}

/// The texts beside the graph. Of two that do not fit there, the one that says more.
std::string remark(const Card& card) {
    switch (card.kind) {
        case Card::Kind::health:
            return card.chip;
        case Card::Kind::battery:
            return joined(card.chip, card.footer);
        case Card::Kind::fans:
            return card.detail.empty() ? card.footer : card.detail;
        default:
            return joined(card.footer, card.chip);
    }
}

Row rowOf(const Card& card) {
    const auto* history = std::get_if<std::vector<double>>(&card.graph);
    const char* between = card.unit.empty() || card.unit == "°C" ? "" : " ";
    return {.title = Text::escapedForDisplay(card.title),
            .value = card.value + between + card.unit,
            .graph = history != nullptr ? sparkline(*history) : meter(std::get<double>(card.graph)),
            .remark = Text::escapedForDisplay(remark(card))};
}

std::size_t without(std::size_t columns, std::size_t taken) {
    return columns - std::min(columns, taken);
}

}  // namespace

std::vector<std::string> tableOf(const Console& console, std::span<const Card> cards) {
    std::vector<Row> rows(cards.size());
    std::transform(cards.begin(), cards.end(), rows.begin(), rowOf);
    std::size_t titles = 0;
    std::size_t values = 0;
    for (const Row& row : rows) {
        titles = std::max(titles, Text::columns(console.fitted(row.title, mostTitleColumns)) + gap);
        values = std::max(values, Text::columns(row.value) + gap);
    }
    values = std::min(values, without(console.width(), titles));
    std::size_t remarks = without(console.width(), titles + values);
    const bool graphs = remarks >= graphColumns + gap + leastRemarkColumns;
    if (graphs) remarks -= graphColumns + gap;

    std::vector<std::string> all;
    for (const Row& row : rows) {
        const std::string title = console.fitted(row.title, titles - gap);
        const std::string value = console.fitted(row.value, values);
        std::string line = console.styled(Console::Style::dim, Columns::left(title, titles)) +
                           console.styled(Console::Style::strong, Columns::left(value, values));
        if (graphs) line += console.styled(Console::Style::mark, row.graph) + std::string(gap, ' ');
        all.push_back(line + console.fitted(row.remark, remarks));
    }
    return all;
}

}  // namespace tavrel::cli
