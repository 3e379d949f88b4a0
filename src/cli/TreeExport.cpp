#include "cli/TreeExport.h"

#include "cli/ExitStatus.h"
#include "cli/Json.h"
#include "core/ByteCount.h"
#include "core/DateText.h"
#include "core/Files.h"
#include "core/Phrase.h"
#include "disk/TreeRecord.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace tavrel::cli::TreeExport {

namespace {

using Text::localized;

constexpr std::array kindNames = {"appeared", "gone", "grew", "shrank"};

Json::Value document(const TreeRecord& before, const TreeRecord& now, const std::vector<TreeChange>& all) {
    Json::Value list = Json::Value::array();
    for (const TreeChange& change : all) {
        list.push_back({{"path", Json::path(now.root / change.path)},
                        {"change", kindNames.at(static_cast<std::size_t>(change.kind))},
                        {"isFolder", change.isFolder},
                        {"delta", change.delta}});
    }
    return {{"path", Json::path(now.root)},
            {"earlierPath", Json::path(before.root)},
            {"before", before.total.size},
            {"now", now.total.size},
            {"changes", std::move(list)}};
}

std::string word(TreeChange::Kind kind) {
    switch (kind) {
        case TreeChange::Kind::appeared:
            return localized("new");
        case TreeChange::Kind::gone:
            return localized("gone");
        case TreeChange::Kind::grew:
            return localized("grew");
        case TreeChange::Kind::shrank:
            break;
    }
    return localized("shrank");
}

std::string difference(std::int64_t delta) {
    return (delta < 0 ? "-" : "+") + byteCount(delta < 0 ? -delta : delta);
}

void print(Console& console, const TreeRecord& before, const TreeRecord& now,
           const std::vector<TreeChange>& all, std::size_t limit) {
    constexpr std::size_t nameColumn = 26;
    for (std::size_t i = 0; i < std::min(limit, all.size()); ++i) {
        const TreeChange& change = all[i];
        const std::string name = change.path.empty() ? "." : Text::escapedForDisplay(change.path);
        const auto style = change.delta < 0 ? Console::Style::mark : Console::Style::caution;
        console.line(fmt::format(
            "{}  {:<8}  {}", console.styled(style, fmt::format("{:>12}", difference(change.delta))),
            word(change.kind),
            console.fitted(name + (change.isFolder ? "/" : ""), console.width() - nameColumn)));
    }
    if (all.size() > limit) {
        const auto more = static_cast<unsigned long>(all.size() - limit);
        console.line(console.styled(Console::Style::dim,
                                    counted("… and {} more change", "… and {} more changes", more)));
    }
    console.line(console.styled(
        Console::Style::strong,
        phrase("{} since {}", difference(now.total.size - before.total.size), dateAndTime(before.taken))));
}

}  // namespace

int write(const Path& root, const std::string& file, Console& console) {
    const TreeRecord record = TreeRecord::take(root, std::chrono::system_clock::now());
    if (const auto error = Files::writeAtomically(file, record.encoded()))
        return console.fail(
            phrase("{} cannot be written: {}", Text::escapedForDisplay(file), error.message()));
    if (console.json()) {
        console.document({{"export", Json::path(file)},
                          {"size", record.total.size},
                          {"files", record.total.files},
                          {"folders", record.folders.size()}});
    } else {
        const auto folders = static_cast<unsigned long>(record.folders.size());
        console.line(counted("{1} in {0} folder written to {2}", "{1} in {0} folders written to {2}", folders,
                             byteCount(record.total.size), Text::escapedForDisplay(file)));
    }
    return ExitStatus::done;
}

int compare(const Path& root, const std::string& file, std::size_t limit, Console& console) {
    const auto text = Files::read(file);
    if (!text)
        return console.fail(
            phrase("{} cannot be read: {}", Text::escapedForDisplay(file), text.error().message()));
    const auto before = TreeRecord::decoded(*text);
    if (!before) return console.fail(phrase("{} is no export of a tree", Text::escapedForDisplay(file)));
    if (before->root != root)
        return console.misuse(phrase("{} was taken of {}", Text::escapedForDisplay(file),
                                     Text::escapedForDisplay(before->root.native())));
    const TreeRecord now = TreeRecord::take(root, std::chrono::system_clock::now());
    const auto all = changes(*before, now);
    if (console.json()) {
        console.document(document(*before, now, all));
    } else {
        print(console, *before, now, all, limit);
    }
    return ExitStatus::done;
}

}  // namespace tavrel::cli::TreeExport
