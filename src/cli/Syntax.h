#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace tavrel::cli {

/// One option or argument of a command.
class Option {
  public:
    explicit Option(CLI::Option& option) : option_(&option) {}

    Option required();
    Option excludes(Option other);
    Option needs(Option other);
    Option oneOf(const std::vector<std::string>& values);

    /// `check` returns what is wrong with a text as one line, nothing if it is valid.
    Option check(const std::function<std::string(const std::string&)>& check);

  private:
    CLI::Option* option_;
};

/// The options and arguments of one command. Names start with "--", those of arguments do not. Each target
/// keeps its value unless the user gives another, and must outlive the parsing.
///
/// The library of the command line is included in Syntax.cpp and CommandLine.cpp only: it takes long to
/// compile.
class Syntax {
  public:
    using Word = std::variant<std::string*, std::optional<std::string>*>;
    using Number = std::variant<int*, std::optional<int>*, std::int64_t*, double*>;

    explicit Syntax(CLI::App& command) : command_(command) {}

    /// Adds the command `name` to `app`; `chosen` is called when it was parsed.
    static Syntax ofCommand(CLI::App& app, const std::string& name, const std::string& description,
                            std::function<void()> chosen);

    Option flag(const std::string& name, bool& target, const std::string& description);
    Option value(const std::string& name, const std::string& placeholder, Word target,
                 const std::string& description);

    /// Values outside `least` to `most` are refused.
    Option number(const std::string& name, const std::string& placeholder, Number target, double least,
                  double most, const std::string& description);

    /// An option that may be repeated, or an argument that takes all that follow. Texts are kept to the byte:
    /// nothing in a name is read as a list.
    Option list(const std::string& name, const std::string& placeholder, std::vector<std::string>& target,
                const std::string& description);

    /// As `list`, but the option takes all that follow it, too.
    Option greedyList(const std::string& name, const std::string& placeholder,
                      std::vector<std::string>& target, const std::string& description);

    /// An option whose value is split at its commas.
    Option commaList(const std::string& name, const std::string& placeholder,
                     std::vector<std::string>& target, const std::string& description);

    /// The text below the help of the command.
    void footer(const std::string& text);

  private:
    CLI::App& command_;
};

}  // namespace tavrel::cli
