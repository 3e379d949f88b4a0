#pragma once

#include "platform/FolderAccess.h"

#include <filesystem>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tavrel {

/// Root removes one entry of a system folder, with everything in it, if it still is what was seen.
struct EntryRemoval {
    std::filesystem::path path;  // absolute and standardised
    FileIdentity seen;           // the mount does not count
};

/// The tools that root runs. `RootTools` holds what each is and which arguments it takes.
enum class RootTool {
    vacuumJournal,
    cleanAptCache,
    cleanDnfCache,
    thinPacmanCache,
    removeSnapRevision,
    uninstallRuntime,
    deleteLocalSnapshot,
};

/// One run of a tool.
struct ToolRun {
    RootTool tool{};
    std::vector<std::string> arguments = {};  // those that the tool's row leaves open
    bool operator==(const ToolRun&) const = default;
};

/// One thing that root is asked to do.
using RootStep = std::variant<EntryRemoval, ToolRun>;

/// Why a step is not even tried.
enum class RootRefusal {
    notUnderstood,
    tooLong,
    tooMany,
    outside,       // not below a folder that root may clean
    replaceable,   // others than root could put another thing in its place
    badArguments,  // of a tool
    toolMissing,
};

/// The outcome of one step.
struct StepResult {
    enum class State { done, refused, failed };

    State state = State::done;
    RootRefusal refusal{};     // of a refused step
    std::string message = {};  // of a failed step: English or a tool's own words; may be empty

    [[nodiscard]] static StepResult done() { return {}; }
    [[nodiscard]] static StepResult refused(RootRefusal why) { return {State::refused, why}; }
    [[nodiscard]] static StepResult failed(std::string message) {
        return {State::failed, {}, std::move(message)};
    }

    [[nodiscard]] bool isDone() const { return state == State::done; }
    /// Why the step was not done, in the user's language. Empty when it was.
    [[nodiscard]] std::string reason() const;

    bool operator==(const StepResult&) const = default;
};

}  // namespace tavrel
