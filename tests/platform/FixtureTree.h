#pragma once

#include "support/Sandbox.h"

#include <string>
#include <string_view>

namespace tavrel::testing {

/// Writes a tree of kernel files from a table with a line each: "sys/class/net/eth0/type = 1". A path that
/// ends in "/" is a folder, "->" in place of "=" makes a link; "\n" in a value is a newline.
inline void plant(const Sandbox& sandbox, std::string_view table) {
    while (!table.empty()) {
        const std::size_t end = std::min(table.find('\n'), table.size());
        std::string_view line = table.substr(0, end);
        table.remove_prefix(std::min(end + 1, table.size()));
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        if (line.empty()) continue;
        const std::size_t blank = line.find(' ');
        const std::string path(line.substr(0, blank));
        if (blank == std::string_view::npos) {
            sandbox.folder(path);
            continue;
        }
        std::string value(line.substr(std::min(line.find(' ', blank + 1) + 1, line.size())));
        for (std::size_t at = value.find("\\n"); at != std::string::npos; at = value.find("\\n", at)) {
            value.replace(at, 2, "\n");
        }
        if (line.substr(blank + 1).starts_with("->")) {
            sandbox.link(path, value);
        } else {
            sandbox.text(path, value + "\n");
        }
    }
}

}  // namespace tavrel::testing
