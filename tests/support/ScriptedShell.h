#pragma once

#include "platform/Shell.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tavrel::testing {

/// A shell that runs nothing: it gives the answers it was handed, in their order, and notes every call. Once
/// they are used up the last one stays.
class ScriptedShell final : public Shell {
  public:
    struct Call {
        std::string path;
        std::vector<std::string> args;
        std::chrono::duration<double> timeout;
        bool operator==(const Call&) const = default;
    };

    explicit ScriptedShell(CommandResult answer = {}) : answers_{std::move(answer)} {}
    explicit ScriptedShell(std::vector<CommandResult> answers) : answers_(std::move(answers)) {}

    [[nodiscard]] CommandResult run(const std::string& path, const std::vector<std::string>& args,
                                    std::chrono::duration<double> timeout) override {
        calls.push_back({path, args, timeout});
        return answers_.at(std::min(calls.size(), answers_.size()) - 1);
    }

    std::vector<Call> calls;

  private:
    std::vector<CommandResult> answers_;
};

}  // namespace tavrel::testing
