#pragma once

#include <functional>
#include <string>

namespace tavrel::testing {

/// Runs `body` in a child process, where it may give away rights and resources for good. The answer is what
/// `body` returned, or how the child died instead.
std::string inChild(const std::function<std::string()>& body);

}  // namespace tavrel::testing
