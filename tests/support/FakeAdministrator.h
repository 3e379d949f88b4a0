#pragma once

#include "platform/Administrator.h"

#include <functional>
#include <optional>
#include <vector>

namespace tavrel::testing {

/// Plays the person at the password prompt and what is then done as root.
class FakeAdministrator final : public Administrator {
  public:
    std::optional<Refusal> refusal;   // of the whole batch
    std::vector<StepResult> results;  // of its first steps; the others are done
    std::function<void()> act = [] {};
    std::filesystem::path barred;  // what others than root can change
    std::vector<std::vector<RootStep>> batches;

    [[nodiscard]] Outcome run(const std::vector<RootStep>& steps,
                              std::chrono::duration<double> /*timeout*/) override {
        batches.push_back(steps);
        act();
        if (refusal) return tl::unexpected(*refusal);
        results.resize(steps.size());
        return results;
    }
    [[nodiscard]] bool mayRemove(const std::filesystem::path& path) const override { return path != barred; }
};

}  // namespace tavrel::testing
