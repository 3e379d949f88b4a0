#pragma once

#include "cleaning/CleanItem.h"
#include "platform/RunningApplications.h"

#include <string>
#include <vector>

/// The one question whether something is at work with an item. It is asked when the item is found, and again
/// right before it is removed: minutes lie between.
namespace tavrel::InUse {

/// Whether one of the item's occupants runs, a lock in one of their profiles is held, or a process uses a
/// file in the item or in such a profile. Names are compared without regard to letter case. Also true if
/// the processes cannot be listed or a lock cannot be read.
[[nodiscard]] bool isInUse(const CleanItem& item, const RunningApplications& running);

/// Puts what is safe and in use up for review; its note says so.
void mark(std::vector<CleanItem>& items, const RunningApplications& running);

/// The reason that a removal of such an item is refused with.
[[nodiscard]] std::string refusal();

}  // namespace tavrel::InUse
