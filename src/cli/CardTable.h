#pragma once

#include "cli/Console.h"
#include "monitoring/StatusTexts.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tavrel::cli {

/// Cards below one another in columns that are as wide as what stands in them: title, value, graph, footer.
class CardTable {
  public:
    /// What a graph takes.
    static constexpr std::size_t graphColumns = 12;

    void add(const StatusTexts::MetricCard& card, const std::string& graph);

    /// A line for each card, on a terminal no wider than that. Where the room is short the graphs go first.
    [[nodiscard]] std::vector<std::string> lines(const Console& console) const;

  private:
    struct Row {
        std::string title;
        std::string value;
        std::string graph;
        std::string footer;
    };

    std::vector<Row> rows_;
};

}  // namespace tavrel::cli
