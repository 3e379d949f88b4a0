#pragma once

#include "cleaning/CleanCategory.h"
#include "cleaning/Occupants.h"
#include "cleaning/Risk.h"
#include "core/CheckedSum.h"
#include "platform/root/RootStep.h"
#include "platform/root/RootTools.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// One thing on disk that can be removed.
struct CleanItem {
    std::filesystem::path url;
    std::int64_t size = 0;  // bytes that it frees
    CleanCategory category = CleanCategory::userCaches;
    Risk risk = Risk::review;
    std::string note;                      // one line under the item's name; may be empty
    bool permanent = false;                // delete outright: moving it would free nothing
    bool requiresAdmin = false;            // only root can remove it
    bool toTrash = false;                  // never deleted outright, whatever its category
    bool isNoLink = false;                 // as it was found: a link in its place is another entry
    std::optional<ToolRun> rootTool;       // root runs it to remove this; `url` is then a name and no path
    std::vector<std::string> userCommand;  // program and arguments, run as the user; `url` is then a name
    Occupants occupants;                   // who may be at work with it

    /// The key of a selection: two items with one path are one thing to choose.
    [[nodiscard]] const std::string& id() const { return url.native(); }

    [[nodiscard]] bool isPreselected() const { return risk == Risk::safe; }

    /// Whether a command removes it and `url` is no path.
    [[nodiscard]] bool isCommand() const { return rootTool || !userCommand.empty(); }

    /// What a person would type to have root's tool remove it.
    [[nodiscard]] std::optional<std::string> adminCommand() const {
        return rootTool ? RootTools::commandLine(*rootTool) : std::nullopt;
    }

    bool operator==(const CleanItem&) const = default;
};

/// What all of `items` free together, in bytes.
[[nodiscard]] inline std::int64_t sizeOf(const std::vector<CleanItem>& items) {
    std::int64_t sum = 0;
    for (const CleanItem& item : items) sum = addBytes(sum, item.size);
    return sum;
}

}  // namespace tavrel
