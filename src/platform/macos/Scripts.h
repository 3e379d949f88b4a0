#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Shell texts that run a whole batch behind one password prompt and still report.
namespace tavrel::Scripts {

/// Runs every command, even after one failed; the exit status is 1 if any did.
[[nodiscard]] std::string statusBatch(const std::vector<std::string>& commands);

struct Step {
    std::string identifier;  // no white space
    std::string command;
};

/// Runs every step and prints a marker line with its identifier and exit status behind its output.
[[nodiscard]] std::string markerBatch(const std::vector<Step>& steps);

struct StepResult {
    std::string identifier;
    std::int32_t status = 0;
    std::string output;  // the lines between the previous marker and this step's
    bool operator==(const StepResult&) const = default;
};

/// What each step of a marker batch said, in the order of the markers. A step without a marker is missing.
[[nodiscard]] std::vector<StepResult> markerResults(std::string_view output);

}  // namespace tavrel::Scripts
