#include "cleaning/ScanTable.h"

#include "platform/posix/NoCommands.h"

#include <array>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

namespace tavrel::testing {

void expectScan(const sample::SampleMac& mac, const std::string& table,
                const std::function<std::vector<CleanItem>()>& scan) {
    std::multimap<std::string, std::string> expected;  // risk and note by path
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream rest(line);
        std::array<std::string, 5> cells;
        for (std::string& cell : cells) {
            std::getline(rest >> std::ws, cell, '|');
            cell.erase(cell.find_last_not_of(' ') + 1);
        }
        auto& [path, bytes, days, risk, note] = cells;
        const bool isFolder = path.ends_with('/');
        if (isFolder) path.pop_back();
        const double age = days.empty() ? 0 : std::stod(days);
        if (!bytes.empty())
            isFolder ? mac.folder(path, 1, std::stoll(bytes), age) : mac.file(path, std::stoll(bytes), age);
        if (!risk.empty()) expected.emplace(mac.at(path), risk.append(" | ").append(note));
    }
    std::multimap<std::string, std::string> found;
    for (const CleanItem& item : scan()) {
        const auto row = expected.find(item.url);
        const bool anyNote = row != expected.end() && row->second.ends_with("| ");
        found.emplace(item.url, std::string(rawText(item.risk)) + " | " + (anyNote ? "" : item.note));
    }
    EXPECT_EQ(found, expected);
}

std::vector<CleanItem> systemScan(const Profile& profile, const JunkScanner::Context& context,
                                  const std::set<CleanCategory>& categories, const ApplicationNames& names) {
    NoCommands noTools;
    return JunkScanner(profile.scan, noTools, names).scan(categories, context, [](CleanCategory) {});
}

}  // namespace tavrel::testing
