#pragma once

#include "cleaning/CleanReport.h"

#include <string>
#include <variant>

namespace tavrel {

/// Where a list of removable things stands between two scans.
namespace CleanPhases {

struct Idle {};
struct Scanning {
    std::string text;
};
struct Ready {};
struct Cleaning {
    double fraction = 0;  // of the items that are done
};
struct Done {
    CleanReport report;
};

}  // namespace CleanPhases

using CleanPhase = std::variant<CleanPhases::Idle, CleanPhases::Scanning, CleanPhases::Ready,
                                CleanPhases::Cleaning, CleanPhases::Done>;

/// Neither a scan nor a clean may begin while one of them goes on.
[[nodiscard]] inline bool isWorking(const CleanPhase& phase) {
    return std::holds_alternative<CleanPhases::Scanning>(phase) ||
           std::holds_alternative<CleanPhases::Cleaning>(phase);
}

}  // namespace tavrel
