#include "cli/ItemList.h"

#include "cleaning/CleanTexts.h"
#include "cli/Columns.h"
#include "core/ByteCount.h"
#include "core/Paths.h"
#include "core/Phrase.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tavrel::cli::ItemList {

namespace {

using Style = Console::Style;
using Text::localized;

constexpr std::size_t leastSizeColumns = 8;  // "999.9 MB", "12.34 GB"
constexpr std::size_t gap = 2;

/// One item as two texts: what it is, and what to mind about it.
struct Row {
    const CleanItem& item;
    std::string path;
    std::vector<std::pair<Style, std::string>> remarks;  // the chips, then the note

    [[nodiscard]] std::size_t columnsOfRemarks() const {
        std::size_t columns = 0;
        for (const auto& [style, text] : remarks) columns += Text::columns(text) + (columns > 0 ? 1 : 0);
        return columns;
    }
};

Row rowFor(const Console& console, const CleanItem& item, const std::filesystem::path& home,
           std::size_t room) {
    Row row{.item = item, .path = console.fitted(shown(item.url, home), room)};
    const auto chip = [&row](bool stands, Style style, Text::English word) {
        if (stands) row.remarks.emplace_back(style, "[" + localized(word) + "]");
    };
    chip(item.risk == Risk::review, Style::caution, "Review");
    chip(item.permanent, Style::danger, "Permanent");
    chip(item.requiresAdmin, Style::privileged, "admin");
    const std::size_t left = room - std::min(room, row.columnsOfRemarks() + 1);
    if (!item.note.empty())
        row.remarks.emplace_back(Style::dim, console.fitted(Text::escapedForDisplay(item.note), left));
    return row;
}

/// Remarks stand beside the paths where the whole group has room for that, else below them.
enum class Remarks { beside, below };

/// Where the paths of a group begin, behind marks and sizes.
std::size_t pathColumn(std::size_t sizeColumns) {
    return 2 + 1 + 2 + sizeColumns + 2;
}

void printRow(Console& console, const Row& row, std::size_t sizeColumns, bool marked, Remarks place) {
    const std::string mark = marked ? console.styled(Style::mark, "●") : "○";
    const std::string size = Columns::right(CleanTexts::size(row.item), sizeColumns);
    std::string line = fmt::format("  {}  {}  {}", mark, size, row.path);
    std::string between =
        place == Remarks::beside ? std::string(gap, ' ') : "\n" + std::string(pathColumn(sizeColumns), ' ');
    for (const auto& [style, text] : row.remarks) {
        line += between + console.styled(style, text);
        between = " ";
    }
    console.line(line);
}

void printGroup(Console& console, CleanCategory category, const std::vector<CleanItem>& group,
                const std::filesystem::path& home, const Marked& marked) {
    const std::string title = console.styled(Style::strong, CleanCategories::title(category));
    const std::string count = counted("{} item", "{} items", group.size());
    console.line(fmt::format("{} · {} · {}", title, count, byteCount(sizeOf(group))));
    console.line(console.styled(Style::dim, CleanCategories::summary(category)));

    std::size_t sizeColumns = leastSizeColumns;
    for (const CleanItem& item : group)
        sizeColumns = std::max(sizeColumns, Text::columns(CleanTexts::size(item)));
    const std::size_t room = console.width() - std::min(console.width(), pathColumn(sizeColumns));
    std::vector<Row> rows;
    rows.reserve(group.size());
    for (const CleanItem& item : group) rows.push_back(rowFor(console, item, home, room));
    const bool fits = std::all_of(rows.begin(), rows.end(), [&](const Row& row) {
        return Text::columns(row.path) + gap + row.columnsOfRemarks() <= room;
    });
    for (const Row& row : rows) {
        printRow(console, row, sizeColumns, marked(row.item), fits ? Remarks::beside : Remarks::below);
    }
    console.line("");
}

}  // namespace

std::string shown(const std::filesystem::path& path, const std::filesystem::path& home) {
    return Text::escapedForDisplay(Paths::abbreviated(path, home));
}

void print(Console& console, const std::vector<CleanItem>& items, const std::filesystem::path& home,
           const Marked& marked) {
    for (const CleanCategory category : CleanCategories::allCases) {
        std::vector<CleanItem> group;
        std::copy_if(items.begin(), items.end(), std::back_inserter(group),
                     [&](const CleanItem& item) { return item.category == category; });
        if (!group.empty()) printGroup(console, category, group, home, marked);
    }
}

}  // namespace tavrel::cli::ItemList
