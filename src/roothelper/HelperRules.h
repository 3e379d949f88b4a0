#pragma once

#include "cleaning/RootWork.h"

#include <chrono>
#include <cstddef>

namespace tavrel {

/// The limits of the helper. No input changes them.
struct HelperRules {
    RootWork::Rules work;
    std::size_t mostSteps = 10'000;                // in one run; further ones are refused
    std::size_t mostBytes = 64'000'000;            // of input; then the helper ends
    std::chrono::milliseconds idle{60'000};        // without input; then the helper ends
    std::chrono::milliseconds step{6 * 60'000};    // for one step, after which the helper is ended
    std::chrono::milliseconds whole{30 * 60'000};  // from start to end
};

/// The rules that a helper was linked with: nothing at run time changes them.
[[nodiscard]] HelperRules helperRules();

}  // namespace tavrel
