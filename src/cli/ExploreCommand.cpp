#include "cli/AddCommand.h"
#include "cli/Arguments.h"
#include "cli/Columns.h"
#include "cli/ExitStatus.h"
#include "cli/Json.h"
#include "cli/Session.h"
#include "cli/TreeExport.h"
#include "core/ByteCount.h"
#include "core/Decimal.h"
#include "core/Files.h"
#include "core/Phrase.h"
#include "disk/DiskIndex.h"
#include "disk/FileCount.h"
#include "disk/FolderListing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Text::localized;
using Path = std::filesystem::path;

/// A thing in the folder with what is known of the folders in it.
struct Row {
    AnalyzeEntry entry;
    std::vector<SubSlice> below;  // largest first
};

/// One look at a folder, two levels deep.
struct Look {
    DiskIndex::Info total;
    std::vector<Row> rows;  // largest first

    static Look at(const Path& folder, const FolderListing::Packages& packages) {
        constexpr int levels = 2;
        const auto measured = DiskIndex::measure(folder, levels);
        Look look = {.total = {measured.size, measured.files}, .rows = {}};
        std::map<std::string, std::vector<SubSlice>> below;
        for (const auto& [path, info] : measured.folders) {
            below[Path(path).parent_path().native()].push_back({path, info.size, info.files});
        }
        for (AnalyzeEntry entry : FolderListing::of(folder, packages).all) {
            const auto known = measured.folders.find(entry.url.native());
            if (known != measured.folders.end()) {
                entry.size = known->second.size;
                entry.files = known->second.files;
            }
            Row row = {std::move(entry), {}};
            if (row.entry.isFolder) row.below = std::move(below[row.entry.url.native()]);
            std::sort(row.below.begin(), row.below.end(), [](const SubSlice& a, const SubSlice& b) {
                return a.size != b.size ? a.size > b.size : a.url < b.url;
            });
            look.rows.push_back(std::move(row));
        }
        std::stable_sort(look.rows.begin(), look.rows.end(), [](const Row& a, const Row& b) {
            return a.entry.size.value_or(0) > b.entry.size.value_or(0);
        });
        return look;
    }

    [[nodiscard]] double share(std::int64_t size) const {
        return total.size > 0 ? static_cast<double>(size) / static_cast<double>(total.size) : 0;
    }
};

Json::Value document(const Path& folder, const Look& look) {
    Json::Value entries = Json::Value::array();
    for (const Row& row : look.rows) {
        Json::Value below = Json::Value::array();
        for (const SubSlice& slice : row.below) {
            below.push_back({{"path", Json::path(slice.url)},
                             {"size", slice.size},
                             {"files", slice.files},
                             {"share", look.share(slice.size)}});
        }
        const std::int64_t size = row.entry.size.value_or(0);
        entries.push_back({{"path", Json::path(row.entry.url)},
                           {"isFolder", row.entry.isFolder},
                           {"size", size},
                           {"files", row.entry.files.value_or(0)},
                           {"share", look.share(size)},
                           {"below", std::move(below)}});
    }
    return {{"path", Json::path(folder)},
            {"size", look.total.size},
            {"files", look.total.files},
            {"entries", std::move(entries)}};
}

constexpr std::size_t sizeColumns = 10;
constexpr std::size_t barColumns = 20;
constexpr std::size_t shareColumns = barColumns + 8;  // " 100.0%"

std::size_t fileColumns() {
    return std::max<std::size_t>(6, Text::columns(localized("Files")));
}

std::string heading() {
    return fmt::format("{}  {}  {}  {}", Columns::right(localized("Size"), sizeColumns),
                       Columns::left(localized("Share"), shareColumns),
                       Columns::right(localized("Files"), fileColumns()), localized("Name"));
}

std::string bar(double share) {
    const auto filled = static_cast<std::size_t>(std::lround(std::clamp(share, 0.0, 1.0) * barColumns));
    std::string line;
    for (std::size_t i = 0; i < barColumns; ++i) line += i < filled ? "█" : "░";
    return line;
}

void print(Console& console, const Look& look, std::size_t limit) {
    const std::size_t nameColumn = sizeColumns + 2 + shareColumns + 2 + fileColumns() + 2;
    constexpr std::size_t shortestName = 10;
    const std::size_t room = std::max(console.width(), nameColumn + shortestName) - nameColumn;
    if (!look.rows.empty()) console.line(console.styled(Console::Style::dim, heading()));
    for (std::size_t i = 0; i < std::min(limit, look.rows.size()); ++i) {
        const AnalyzeEntry& entry = look.rows[i].entry;
        const std::int64_t size = entry.size.value_or(0);
        const std::string name =
            Text::escapedForDisplay(entry.url.filename().native()) + (entry.isFolder ? "/" : "");
        console.line(fmt::format(
            "{:>{}}  {} {:>6}%  {:>{}}  {}", byteCount(size), sizeColumns,
            console.styled(Console::Style::mark, bar(look.share(size))), oneDecimal(look.share(size) * 100),
            FileCount::format(entry.files.value_or(0)), fileColumns(), console.fitted(name, room)));
    }
    if (look.rows.size() > limit) {
        const auto more = static_cast<unsigned long>(look.rows.size() - limit);
        console.line(console.styled(Console::Style::dim,
                                    counted("… and {} more entry", "… and {} more entries", more)));
    }
    const auto files = static_cast<unsigned long>(look.total.files);
    console.line(console.styled(Console::Style::strong, counted("{1} in {0} file", "{1} in {0} files", files,
                                                                byteCount(look.total.size))));
}

struct ExploreCommand {
    std::string path = ".";
    std::string exported;
    std::string compared;
    std::int64_t limit = 30;

    void addTo(Syntax& syntax) {
        constexpr double mostRows = 1'000'000;
        syntax.value("PATH", "", &path, localized("a folder (this one)"));
        syntax.number("--limit", "N", &limit, 1, mostRows, localized("most rows to print (30)"));
        const auto writes =
            syntax.value("--export", "FILE", &exported, localized("write what the tree occupies"));
        syntax.value("--compare", "FILE", &compared, localized("show what has changed since an export"))
            .excludes(writes);
    }

    [[nodiscard]] int run(const GlobalOptions& global, Console& console) const {
        const auto session = Session::open(global);
        if (!session) return console.fail(session.error());
        std::error_code error;
        const Path root = std::filesystem::canonical(path, error);
        if (error || !Files::isFolder(root))
            return console.fail(phrase("{} is no folder", Text::escapedForDisplay(path)));
        console.progress(localized("Measuring…"));
        if (!exported.empty()) return TreeExport::write(root, exported, console);
        const auto rows = static_cast<std::size_t>(limit);
        if (!compared.empty()) return TreeExport::compare(root, compared, rows, console);
        const Look look = Look::at(root, session->profile().packages);
        if (console.json()) {
            console.document(document(root, look));
        } else {
            print(console, look, rows);
        }
        return ExitStatus::done;
    }
};

}  // namespace

void Commands::addExplore(CLI::App& app, Command& chosen) {
    addCommand<ExploreCommand>(app, chosen, "explore",
                               "show what in a folder occupies most, and what has changed");
}

}  // namespace tavrel::cli
