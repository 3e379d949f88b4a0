#pragma once

#include "support/Sandbox.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace tavrel::testing {

/// Writes a tree of kernel files from a table with a line each: "sys/class/net/eth0/type = 1". "->" in place
/// of "=" makes a link; "\n" in a value is a newline. A path that ends in "/" is a folder, and may be
/// followed by its files as "name=content", with "~" for a blank. All paths are relative to `parent`.
inline void plant(const Sandbox& sandbox, const std::string& table, const std::string& parent = "") {
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string path, word, value;
        if (!(words >> path)) continue;
        path.insert(0, parent);
        if (path.ends_with('/')) {
            sandbox.folder(path);
            while (words >> word) {
                std::replace(word.begin(), word.end(), '~', ' ');
                const std::size_t equals = word.find('=');
                sandbox.text(path + word.substr(0, equals), word.substr(equals + 1) + "\n");
            }
            continue;
        }
        words >> word >> std::ws;
        std::getline(words, value);
        for (std::size_t at = value.find("\\n"); at != std::string::npos; at = value.find("\\n", at)) {
            value.replace(at, 2, "\n");
        }
        if (word == "->") {
            sandbox.link(path, value);
        } else {
            sandbox.text(path, value + "\n");
        }
    }
}

}  // namespace tavrel::testing
