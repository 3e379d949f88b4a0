#include "cli/Syntax.h"

#include "core/Text.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace tavrel::cli {

namespace {

CLI::Option& optionOf(CLI::App& command, const std::string& name, const std::string& placeholder,
                      std::vector<std::string>& target, const std::string& description) {
    const auto take = [&target](const CLI::results_t& texts) {
        target = texts;
        return true;
    };
    constexpr int noLimit = -1;
    return *command.add_option(name, take, description)
                ->take_all()
                ->expected(1, noLimit)
                ->option_text(placeholder);
}

/// The help names no ranges and no choices: the descriptions do.
template <typename Value>
CLI::Validator range(double least, double most) {
    return CLI::Range(static_cast<Value>(least), static_cast<Value>(most)).description("");
}

CLI::Validator rangeOf(std::optional<int>* /*target*/, double least, double most) {
    return range<int>(least, most);
}

template <typename Value>
CLI::Validator rangeOf(Value* /*target*/, double least, double most) {
    return range<Value>(least, most);
}

}  // namespace

Option Option::required() {
    option_->required();
    return *this;
}

Option Option::excludes(Option other) {
    option_->excludes(other.option_);
    return *this;
}

Option Option::needs(Option other) {
    option_->needs(other.option_);
    return *this;
}

Option Option::oneOf(const std::vector<std::string>& values) {
    option_->check(CLI::IsMember(values).description(""));
    return *this;
}

Option Option::check(const std::function<std::string(const std::string&)>& check) {
    option_->check(check);
    return *this;
}

Syntax Syntax::ofCommand(CLI::App& app, const std::string& name, const std::string& description,
                         std::function<void()> chosen) {
    CLI::App* const command = app.add_subcommand(name, description);
    command->group(Text::localized("Commands"));
    command->callback(std::move(chosen));
    return Syntax(*command);
}

Option Syntax::flag(const std::string& name, bool& target, const std::string& description) {
    return Option(*command_.add_flag(name, target, description));
}

Option Syntax::value(const std::string& name, const std::string& placeholder, Word target,
                     const std::string& description) {
    const auto add = [&](auto* text) { return command_.add_option(name, *text, description); };
    return Option(*std::visit(add, target)->type_name(placeholder));
}

Option Syntax::number(const std::string& name, const std::string& placeholder, Number target, double least,
                      double most, const std::string& description) {
    const auto add = [&](auto* number) {
        return command_.add_option(name, *number, description)->check(rangeOf(number, least, most));
    };
    return Option(*std::visit(add, target)->type_name(placeholder));
}

Option Syntax::list(const std::string& name, const std::string& placeholder, std::vector<std::string>& target,
                    const std::string& description) {
    CLI::Option& option = optionOf(command_, name, placeholder, target, description);
    return Option(*option.allow_extra_args(!name.starts_with('-')));
}

Option Syntax::greedyList(const std::string& name, const std::string& placeholder,
                          std::vector<std::string>& target, const std::string& description) {
    return Option(*optionOf(command_, name, placeholder, target, description).allow_extra_args());
}

Option Syntax::commaList(const std::string& name, const std::string& placeholder,
                         std::vector<std::string>& target, const std::string& description) {
    CLI::Option* const option = command_.add_option(name, target, description);
    return Option(*option->delimiter(',')->allow_extra_args(false)->option_text(placeholder));
}

void Syntax::footer(const std::string& text) {
    command_.footer(text);
}

}  // namespace tavrel::cli
