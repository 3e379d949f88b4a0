#pragma once

#include "models/clean/CleanRunner.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

class Preferences;

/// The one way from chosen items to a report: makes the job by the preferences of the moment, and has it run.
/// For the main thread.
class CleanSession {
  public:
    /// Both outlive this object.
    CleanSession(CleanRunner& runner, const Preferences& preferences)
        : runner_(runner), preferences_(preferences) {}

    /// Begins to remove `items`; `action` is the word in the history, `guard` one of this moment. Returns
    /// nothing, and calls `done` later, as CleanRunner does; or returns the report of a refusal, and calls
    /// neither `progress` nor `done`: real cleans are refused while the protected folders cannot be read.
    [[nodiscard]] std::optional<CleanReport> begin(std::vector<CleanItem> items, std::string action,
                                                   SafetyGuard guard, std::function<void(double)> progress,
                                                   CleanRunner::Done<CleanRunner::Report> done);

  private:
    CleanRunner& runner_;
    const Preferences& preferences_;
};

}  // namespace tavrel
