#include "profiles/CatalogRow.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace tavrel {

namespace {

std::vector<std::string> words(std::string_view text) {
    std::vector<std::string> found;
    while (!text.empty()) {
        const auto blank = text.find(' ');
        found.emplace_back(text.substr(0, blank));
        text.remove_prefix(blank == std::string_view::npos ? text.size() : blank + 1);
    }
    return found;
}

CleanRule::Mode modeOf(const CatalogRow& row) {
    const auto extensions = words(row.extra.extensions);
    switch (row.mode) {
        case CatalogRow::Mode::children:
            return CleanRule::Mode::children();
        case CatalogRow::Mode::files:
            return CleanRule::Mode::files({extensions.begin(), extensions.end()});
        case CatalogRow::Mode::whole:
            break;
    }
    return CleanRule::Mode::whole();
}

CleanRule ruleOf(const CatalogRow& row) {
    return {
        .category = row.category,
        .path = std::string(row.path),
        .mode = modeOf(row),
        .risk = row.risk,
        .note = Text::localized(row.note),
        .minAgeDays = row.extra.minAgeDays,
        .permanent = row.extra.permanent,
        .reviewWithinDays = row.extra.reviewWithinDays,
        .magic = std::string(row.extra.magic),
        .minItemSize = row.extra.minItemSize,
        .toTrash = row.extra.toTrash,
        .owners = words(row.extra.owners),
        .profiles = words(row.extra.profiles),
        .keeps = words(row.extra.keeps),
        .onlyOfInstalled = row.extra.onlyOfInstalled,
    };
}

}  // namespace

std::vector<CleanRule> rulesOf(std::initializer_list<std::span<const CatalogRow>> groups) {
    std::vector<CleanRule> rules;
    for (const auto rows : groups)
        std::transform(rows.begin(), rows.end(), std::back_inserter(rules), ruleOf);
    return rules;
}

void append(std::vector<CleanRule>& rules, std::vector<CleanRule> more) {
    std::move(more.begin(), more.end(), std::back_inserter(rules));
}

std::vector<CleanRule> editorRules(std::string_view folder, std::span<const std::string_view> names,
                                   std::span<const EditorRow> rows) {
    std::vector<CleanRule> rules;
    for (const std::string_view name : names) {
        for (const EditorRow& row : rows) {
            CleanRule rule{
                .category = CleanCategory::editors, .mode = CleanRule::Mode::whole(), .risk = row.risk};
            rule.path.append(folder).append("/").append(name).append(row.suffix);
            rule.note.append(name).append(" · ").append(Text::localized(row.phrase));
            rules.push_back(std::move(rule));
        }
    }
    return rules;
}

}  // namespace tavrel
