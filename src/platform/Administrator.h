#pragma once

#include "platform/root/RootStep.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include <tl/expected.hpp>

namespace tavrel {

/// Has things done as root after asking the user, one prompt for one batch.
class Administrator {
  public:
    /// Why nothing of a batch was done.
    struct Refusal {
        enum class Kind {
            dismissed,    // by the person who was asked
            unavailable,  // no rights were to be had here
            timedOut,
        };
        Kind kind{};
        std::string message;  // in the user's words
    };
    /// One result a step, in the order of the steps.
    using Outcome = tl::expected<std::vector<StepResult>, Refusal>;

    virtual ~Administrator() = default;

    /// Does every step, even after one failed. `timeout` covers the prompt and the work; what was not done by
    /// then counts as failed and is not waited for. Blocks: not for the main thread.
    [[nodiscard]] virtual Outcome run(const std::vector<RootStep>& steps,
                                      std::chrono::duration<double> timeout) = 0;

    /// Whether root may remove the entry at `path`: only when nobody else can put another thing in the place
    /// of any folder above it.
    [[nodiscard]] virtual bool mayRemove(const std::filesystem::path& path) const = 0;
};

}  // namespace tavrel
