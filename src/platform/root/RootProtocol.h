#pragma once

#include "platform/root/RootStep.h"
#include "platform/root/RootTools.h"

#include <string>
#include <string_view>

#include <tl/expected.hpp>

/// What the program and its helper for root's work say to each other: one line a step, one line an answer, in
/// the same order. Words are separated by one blank; what a word holds besides printable ASCII stands as
/// "\xNN". No line below has its newline.
namespace tavrel::RootProtocol {

/// The first line of the helper, when it runs as root and is ready for steps.
inline constexpr std::string_view ready = "tavrel-root-helper 1";

/// No line of a step is longer.
inline constexpr std::size_t longestLine = 65536;

[[nodiscard]] std::string line(const RootStep& step);
/// Checks the form alone; a tool that the table lacks is not understood.
[[nodiscard]] tl::expected<RootStep, RootRefusal> step(std::string_view line, const RootTools::Table& tools);

[[nodiscard]] std::string line(const StepResult& result);
/// What is no answer counts as a failure without words.
[[nodiscard]] StepResult result(std::string_view line);

}  // namespace tavrel::RootProtocol
