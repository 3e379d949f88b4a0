#include "cli/ItemList.h"

#include "cli/Phrase.h"
#include "cli/Selection.h"
#include "core/ByteCount.h"
#include "core/Paths.h"

#include <algorithm>
#include <string>

namespace tavrel::cli::ItemList {

namespace {

using Style = Console::Style;
using Text::localized;

constexpr std::size_t sizeColumns = 8;  // "999.9 MB", "12.34 GB"
constexpr std::size_t pathColumn = 2 + 1 + 2 + sizeColumns + 2;
constexpr std::size_t gap = 2;

/// A text in two forms: as it is measured, and as it is written.
struct Piece {
    std::string plain;
    std::string styled;
};

void append(Piece& line, const Console& console, Style style, const std::string& text, const char* between) {
    if (text.empty()) return;
    if (!line.plain.empty()) {
        line.plain += between;
        line.styled += between;
    }
    line.plain += text;
    line.styled += console.styled(style, text);
}

/// What to mind about an item: its chips, then its note.
Piece remark(const Console& console, const CleanItem& item) {
    const auto chip = [](bool stands, const char* word) { return stands ? "[" + localized(word) + "]" : ""; };
    Piece line;
    append(line, console, Style::caution, chip(item.risk == Risk::review, "Review"), " ");
    append(line, console, Style::danger, chip(item.permanent, "Permanent"), " ");
    append(line, console, Style::privileged, chip(item.requiresAdmin, "admin"), " ");
    append(line, console, Style::dim, Text::shown(item.note), " ");
    return line;
}

std::string rightAligned(const std::string& text, std::size_t columns) {
    const std::size_t taken = Text::columns(text);
    return std::string(columns > taken ? columns - taken : 0, ' ') + text;
}

void printItem(Console& console, const CleanItem& item, const std::filesystem::path& home, bool marked) {
    const std::size_t room = console.width() - pathColumn;
    const std::string path = console.fitted(shown(item.url, home), room);
    const std::string mark = marked ? console.styled(Style::mark, "●") : "○";
    std::string line =
        fmt::format("  {}  {}  {}", mark, rightAligned(byteCount(item.size), sizeColumns), path);

    const Piece note = remark(console, item);
    const bool beside = Text::columns(path) + gap + Text::columns(note.plain) <= room;
    if (!note.plain.empty())
        line += (beside ? std::string(gap, ' ') : "\n" + std::string(pathColumn, ' ')) + note.styled;
    console.line(line);
}

}  // namespace

std::string shown(const std::filesystem::path& path, const std::filesystem::path& home) {
    const std::string& text = path.native();
    if (!Paths::isInside(text, home.native())) return Text::shown(text);
    return "~" + Text::shown(text.substr(home.native().size()));
}

void print(Console& console, const std::vector<CleanItem>& items, const std::filesystem::path& home,
           const Marked& marked) {
    for (const CleanCategory category : CleanCategories::allCases()) {
        std::vector<CleanItem> group;
        std::copy_if(items.begin(), items.end(), std::back_inserter(group),
                     [&](const CleanItem& item) { return item.category == category; });
        if (group.empty()) continue;

        const std::string title = console.styled(Style::strong, CleanCategories::title(category));
        const std::string count = counted("{} item", "{} items", group.size());
        console.line(fmt::format("{} · {} · {}", title, count, byteCount(Selection::size(group))));
        console.line(console.styled(Style::dim, CleanCategories::summary(category)));
        for (const CleanItem& item : group) printItem(console, item, home, marked(item));
        console.line("");
    }
}

}  // namespace tavrel::cli::ItemList
