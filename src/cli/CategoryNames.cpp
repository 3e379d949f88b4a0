#include "cli/CategoryNames.h"

#include "cleaning/CleanCategory.h"
#include "cleaning/JunkScanner.h"
#include "cli/Columns.h"
#include "core/Phrase.h"

#include <algorithm>
#include <set>

#include <fmt/ranges.h>

namespace tavrel::cli::CategoryNames {

namespace {

using Text::localized;

std::set<CleanCategory> categories(CleanMode mode) {
    using enum CleanCategory;
    switch (mode) {
        case CleanMode::system:
            return JunkScanner::systemCategories();
        case CleanMode::ai:
            return {aiSessions, aiCaches, aiModels};
        case CleanMode::projects:
            return {CleanCategory::projects};
        case CleanMode::installers:
            return {CleanCategory::installers};
    }
    return {};
}

std::vector<std::string_view> names(CleanMode mode) {
    std::vector<std::string_view> all;
    for (const CleanCategory category : categories(mode)) all.push_back(CleanCategories::rawValue(category));
    return all;
}

bool has(CleanMode mode, const std::string& name) {
    const auto category = CleanCategories::fromRawValue(name);
    return category && categories(mode).contains(*category);
}

std::string unknown(const std::string& name, CleanMode mode) {
    std::vector<std::string_view> others;
    for (const CleanMode other : CleanModes::allCases) {
        if (other == mode) continue;
        for (const std::string_view each : names(other)) others.push_back(each);
    }
    return phrase("\"{}\" is no category; {} has {}; other modes have {}", Text::escapedForDisplay(name),
                  CleanModes::rawValue(mode), fmt::join(names(mode), ", "), fmt::join(others, ", "));
}

}  // namespace

std::optional<std::string> mistake(const std::vector<std::string>& names, CleanMode mode,
                                   const std::string& command) {
    for (const std::string& name : names) {
        if (has(mode, name)) continue;
        const auto other = std::find_if(CleanModes::allCases.begin(), CleanModes::allCases.end(),
                                        [&](CleanMode each) { return has(each, name); });
        if (other == CleanModes::allCases.end()) return unknown(name, mode);
        const std::string_view owner = CleanModes::rawValue(*other);
        return phrase("\"{}\" is a category of the mode {}: tavrelctl {} {} --categories {}", name, owner,
                      command, owner, name);
    }
    return std::nullopt;
}

std::string help() {
    constexpr std::size_t column = 13;
    constexpr std::size_t most = 100;
    std::string text = localized("Categories of each mode:");
    for (const CleanMode mode : CleanModes::allCases) {
        std::string line = "\n  " + Columns::left(std::string(CleanModes::rawValue(mode)), column - 3);
        for (const std::string_view name : names(mode)) {
            if (line.size() + name.size() > most) {
                text += line;
                line = "\n" + std::string(column - 1, ' ');
            }
            line.append(" ").append(name);
        }
        text += line;
    }
    return text;
}

}  // namespace tavrel::cli::CategoryNames
