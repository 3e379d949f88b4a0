#pragma once

#include "cli/Console.h"

#include <filesystem>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

/// Paths as they are typed.
namespace tavrel::cli::Arguments {

/// Where relative paths count from; empty when that folder is gone, so that no such path means anything.
[[nodiscard]] std::filesystem::path workingFolder();

/// Adds an option that may be repeated, or an argument that takes all that follow, and whose texts are kept
/// to the byte: nothing in a name is read as a list.
CLI::Option* addList(CLI::App& command, const std::string& name, const std::string& placeholder,
                     std::vector<std::string>& target, const std::string& description);

/// Whether something stands at `path`, a link counting as itself. Says so when nothing does.
bool exists(const std::string& path, Console& console);

}  // namespace tavrel::cli::Arguments
