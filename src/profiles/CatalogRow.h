#pragma once

#include "cleaning/CleanRule.h"
#include "core/Text.h"

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

namespace tavrel {

/// A rule as the tables write it. The note is an English text, localised when the rules are made.
struct CatalogRow {
    enum class Mode { whole, children, files };

    /// What most rows leave alone.
    struct Extra {
        std::string_view extensions;  // of `files`: separated by blanks
        int minAgeDays = 0;
        bool permanent = false;
        int reviewWithinDays = 0;
        std::string_view owners = {};    // separated by blanks
        std::string_view profiles = {};  // the same
        std::string_view keeps = {};     // the same
        std::string_view magic = {};
        std::int64_t minItemSize = 65536;
        bool toTrash = false;
        bool onlyOfInstalled = false;
    };

    std::string_view path;
    CleanCategory category;
    Mode mode;
    Risk risk;
    Text::English note;
    Extra extra = {};
};

/// The rules of each group of rows after those of the group before it.
[[nodiscard]] std::vector<CleanRule> rulesOf(std::initializer_list<std::span<const CatalogRow>> groups);

void append(std::vector<CleanRule>& rules, std::vector<CleanRule> more);

/// The rows of code editors: every suffix below every editor's folder, the note beginning with the editor's
/// name.
struct EditorRow {
    std::string_view suffix;
    Risk risk;
    Text::English phrase;
};
[[nodiscard]] std::vector<CleanRule> editorRules(std::string_view folder,
                                                 std::span<const std::string_view> names,
                                                 std::span<const EditorRow> rows);

/// The editors whose web caches have rows of their own.
inline constexpr std::string_view editorNames[] = {"Code",     "Code - Insiders", "Cursor",
                                                   "Windsurf", "VSCodium",        "Zed"};

// clang-format off
inline constexpr EditorRow editorRows[] = {
    {"/Cache",                 Risk::safe,   "cache"},
    {"/CachedData",            Risk::safe,   "compiled code cache"},
    {"/CachedExtensionVSIXs",  Risk::safe,   "downloaded extension installers"},
    {"/Code Cache",            Risk::safe,   "code cache"},
    {"/GPUCache",              Risk::safe,   "GPU cache"},
    {"/logs",                  Risk::safe,   "logs"},
    {"/User/workspaceStorage", Risk::review, "per-workspace state (open tabs, local history)"},
};
// clang-format on

}  // namespace tavrel
