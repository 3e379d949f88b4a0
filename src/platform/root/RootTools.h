#pragma once

#include "platform/root/RootStep.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The table of the tools that root runs, and the one place that makes their command lines.
namespace tavrel::RootTools {

/// What an argument has to be. What passes is one plain word: it cannot be read as an option, another path or
/// shell text.
enum class Argument {
    number,    // 1 to 99999
    date,      // of a local snapshot, "2026-01-02-030405"
    package,   // a package's name
    revision,  // of a snap, "1974" or "x1"
    runtime,   // "runtime/NAME/ARCHITECTURE/BRANCH"
    unit,      // "NAME.service" and other kinds of systemd units
};

struct Row {
    RootTool tool{};
    std::string_view name;                     // between the program and its helper
    std::string program;                       // an absolute path
    std::vector<std::string_view> words = {};  // each "{}" in them stands for the next argument
    std::vector<Argument> arguments = {};
};
using Table = std::vector<Row>;

/// Every tool of the program.
[[nodiscard]] const Table& all();

/// Nothing when the table lacks it.
[[nodiscard]] const Row* find(const Table& table, RootTool tool);
[[nodiscard]] const Row* find(const Table& table, std::string_view name);

[[nodiscard]] bool fits(Argument kind, std::string_view text);

/// The words behind the program. Nothing when the arguments are not of the kinds that the row names.
[[nodiscard]] std::optional<std::vector<std::string>> words(const Row& row,
                                                            const std::vector<std::string>& arguments);

/// The path of the tool's program.
[[nodiscard]] const std::string& program(RootTool tool);
/// The line that a person would type. Nothing when the arguments are not of the tool's kinds.
[[nodiscard]] std::optional<std::string> commandLine(const ToolRun& run);

}  // namespace tavrel::RootTools
