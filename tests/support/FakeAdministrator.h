#pragma once

#include "platform/Administrator.h"

#include <functional>
#include <string>
#include <vector>

namespace tavrel::testing {

/// Plays the person at the password prompt and what the script then does.
class FakeAdministrator final : public Administrator {
  public:
    CommandResult answer;
    std::function<void()> act = [] {};
    std::filesystem::path barred;  // what others than root can change
    std::vector<std::string> scripts;

    [[nodiscard]] CommandResult run(const std::string& script,
                                    std::chrono::duration<double> /*timeout*/) override {
        scripts.push_back(script);
        act();
        return answer;
    }
    [[nodiscard]] bool mayName(const std::filesystem::path& path) const override { return path != barred; }
};

}  // namespace tavrel::testing
