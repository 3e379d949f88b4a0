#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {

/// Under what names one process may be known, and which files it works with.
struct RunningProcess {
    std::string executable;                    // name of the file that it runs; may be empty
    std::vector<std::string> names;            // other names: its own, its script's, its sandbox's
    std::vector<std::filesystem::path> files;  // what it runs, was started with, and holds open

    /// Reads a folder such as /proc/7 (see proc(5)). What cannot be read is left out: of another
    /// user's process only the name and the command line are known.
    [[nodiscard]] static RunningProcess read(const std::filesystem::path& folder);
};

}  // namespace tavrel
