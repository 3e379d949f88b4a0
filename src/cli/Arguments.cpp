#include "cli/Arguments.h"

#include "core/Files.h"
#include "core/Phrase.h"

#include <system_error>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace tavrel::cli::Arguments {

std::filesystem::path workingFolder() {
    std::error_code gone;
    return std::filesystem::current_path(gone);
}

CLI::Option* addList(CLI::App& command, const std::string& name, const std::string& placeholder,
                     std::vector<std::string>& target, const std::string& description) {
    const auto take = [&target](const CLI::results_t& texts) {
        target = texts;
        return true;
    };
    constexpr int noLimit = -1;
    return command.add_option(name, take, description)
        ->take_all()
        ->expected(1, noLimit)
        ->allow_extra_args(!name.starts_with('-'))
        ->option_text(placeholder);
}

bool exists(const std::string& path, Console& console) {
    if (Files::identifier(path)) return true;
    console.warn(phrase("\"{}\" does not exist", Text::shown(path)));
    return false;
}

}  // namespace tavrel::cli::Arguments
