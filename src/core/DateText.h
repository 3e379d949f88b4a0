#pragma once

#include "core/Instant.h"

#include <string>

namespace tavrel {

/// A moment as people write it in the user's language and time zone: an abbreviated date and the time to the
/// minute, such as "Nov 22, 2026, 11:23 PM".
[[nodiscard]] std::string dateAndTime(Instant moment);

}  // namespace tavrel
