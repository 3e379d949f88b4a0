#pragma once

#include <optional>
#include <string>

namespace tavrel::cli {

/// What may stand before or after any command.
struct GlobalOptions {
    std::optional<std::string> home;  // everything of the user's lies there; the environment does not count
    std::string root = "/";           // where absolute places are looked for
    std::optional<std::string> profile;  // the family of systems; this system's when absent
    bool json = false;
    bool quiet = false;
    bool noColour = false;
};

}  // namespace tavrel::cli
