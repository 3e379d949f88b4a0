#include "cli/AddCommand.h"
#include "cli/Arguments.h"
#include "cli/Columns.h"
#include "cli/ExitStatus.h"
#include "cli/Json.h"
#include "core/ByteCount.h"
#include "core/Phrase.h"
#include "disk/DiskIndex.h"
#include "disk/FileSizer.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace tavrel::cli {

namespace {

using Text::localized;

struct Sized {
    std::string path;
    std::int64_t size = 0;
};

/// What is not there measures nothing, but the command did not do what was asked.
int statusFor(const std::vector<std::string>& paths, Console& console) {
    int status = ExitStatus::done;
    for (const std::string& path : paths) {
        if (!Arguments::exists(path, console)) status = ExitStatus::undone;
    }
    return status;
}

constexpr std::size_t sizeColumns = 10;

std::string heading(const Console& console) {
    const std::string words = Columns::right(localized("Size"), sizeColumns) + "  " + localized("File");
    return console.styled(Console::Style::dim, words);
}

std::string row(const Console& console, const Sized& sized) {
    return fmt::format(
        "{:>{}}  {}", byteCount(sized.size), sizeColumns,
        console.fitted(Text::escapedForDisplay(sized.path), console.width() - sizeColumns - 2));
}

void print(Console& console, const std::vector<Sized>& rows) {
    if (console.json()) {
        Json::Value list = Json::Value::array();
        for (const Sized& each : rows) list.push_back({{"path", Json::path(each.path)}, {"size", each.size}});
        console.document(list);
        return;
    }
    for (const Sized& each : rows) console.line(row(console, each));
}

struct SizeCommand {
    std::vector<std::string> paths = {"."};

    void addTo(Syntax& syntax) {
        syntax.list("PATH", "...", paths, localized("files and folders (this folder)"));
    }

    [[nodiscard]] int run(const GlobalOptions& /*global*/, Console& console) const {
        const int status = statusFor(paths, console);
        console.progress(localized("Measuring…"));
        std::vector<Sized> rows;
        rows.reserve(paths.size());
        for (const std::string& path : paths) rows.push_back({path, FileSizer::size(path)});
        print(console, rows);
        return status;
    }
};

Json::Value document(const DiskIndex::Measurement& measured) {
    // Sorted, so that two runs can be compared.
    const std::map<std::string, DiskIndex::Info> sorted(measured.folders.begin(), measured.folders.end());
    Json::Value folders = Json::Value::object();
    for (const auto& [path, info] : sorted) {
        folders[Text::encodePath(path)] = {{"size", info.size}, {"files", info.files}};
    }
    return {{"size", measured.size}, {"files", measured.files}, {"folders", folders}};
}

struct MeasureCommand {
    std::string path = ".";
    int depth = 2;

    void addTo(Syntax& syntax) {
        constexpr int maxDepth = 1000;
        syntax.value("PATH", "", &path, localized("a folder (this one)"));
        syntax.number("--depth", "N", &depth, 0, maxDepth, localized("levels of folders to list (2)"));
    }

    [[nodiscard]] int run(const GlobalOptions& /*global*/, Console& console) const {
        const int status = statusFor({path}, console);
        console.progress(localized("Measuring…"));
        const auto measured = DiskIndex::measure(path, depth);
        if (console.json()) {
            console.document(document(measured));
        } else {
            printLargestFirst(console, measured);
        }
        return status;
    }

    static void printLargestFirst(Console& console, const DiskIndex::Measurement& measured) {
        std::vector<Sized> rows;
        rows.reserve(measured.folders.size());
        for (const auto& [folder, info] : measured.folders) rows.push_back({folder, info.size});
        std::sort(rows.begin(), rows.end(), [](const Sized& a, const Sized& b) {
            return a.size != b.size ? a.size > b.size : a.path < b.path;
        });
        print(console, rows);
        const auto files = static_cast<unsigned long>(measured.files);
        const std::string total =
            counted("{1} in {0} file", "{1} in {0} files", files, byteCount(measured.size));
        console.line(console.styled(Console::Style::strong, total));
    }
};

std::string refuseNoSize(const std::string& text) {
    if (Arguments::bytes(text)) return {};
    return phrase("\"{}\" is no size such as 500000, 20K, 1M or 2GiB", text);
}

struct LargeCommand {
    std::string path = ".";
    std::string minimum = "500MiB";
    std::int64_t limit = 200;

    void addTo(Syntax& syntax) {
        constexpr double mostRows = 1'000'000;
        syntax.value("PATH", "", &path, localized("a folder (this one)"));
        syntax.value("--minimum", "SIZE", &minimum, localized("smallest size, as 1M or 1MiB (500MiB)"))
            .check(refuseNoSize);
        syntax.number("--limit", "N", &limit, 1, mostRows, localized("most files to list (200)"));
    }

    [[nodiscard]] int run(const GlobalOptions& /*global*/, Console& console) const {
        const int status = statusFor({path}, console);
        console.progress(localized("Measuring…"));
        const std::int64_t least = Arguments::bytes(minimum).value_or(0);
        std::vector<Sized> rows;
        for (const auto& file : DiskIndex::largeFiles(path, least, static_cast<std::size_t>(limit))) {
            rows.push_back({file.path, file.size});
        }
        if (!rows.empty() && !console.json()) console.line(heading(console));
        print(console, rows);
        if (rows.empty() && !console.json() && status == ExitStatus::done) {
            console.line(phrase("No file of {} or more", byteCount(least)));
        }
        return status;
    }
};

}  // namespace

void Commands::addSize(CLI::App& app, Command& chosen) {
    addCommand<SizeCommand>(app, chosen, "size", "show what files and folders occupy");
}

void Commands::addMeasure(CLI::App& app, Command& chosen) {
    addCommand<MeasureCommand>(app, chosen, "measure", "show what a folder and those in it occupy");
}

void Commands::addLarge(CLI::App& app, Command& chosen) {
    addCommand<LargeCommand>(app, chosen, "large", "list the largest files below a folder");
}

}  // namespace tavrel::cli
