#include "cleaning/InUse.h"

#include "cleaning/Scanning.h"
#include "core/Text.h"
#include "platform/posix/ProfileLock.h"

#include <algorithm>

namespace tavrel::InUse {

namespace {

bool anyOf(const std::vector<std::string>& wanted, const std::set<std::string>& running) {
    return std::any_of(wanted.begin(), wanted.end(), [&](const std::string& name) {
        return running.contains(name) || running.contains(Text::lowercased(name));
    });
}

}  // namespace

bool isInUse(const CleanItem& item, const RunningApplications& running) {
    if (!running.complete || running.use(item.url)) return true;
    const Occupants& occupants = item.occupants;
    if (anyOf(occupants.identifiers, running.bundleIDs) || anyOf(occupants.names, running.names)) return true;
    return std::any_of(occupants.profiles.begin(), occupants.profiles.end(), [&](const auto& profile) {
        return running.use(profile) || ProfileLock::isHeld(profile);
    });
}

void mark(std::vector<CleanItem>& items, const RunningApplications& running) {
    for (CleanItem& item : items) {
        if (item.risk != Risk::safe || !isInUse(item, running)) continue;
        item.risk = Risk::review;
        item.note = Scanning::note(item.note, Text::localized("running; quit it first"));
    }
}

std::string refusal() {
    return Text::localized("A program is using it; quit that program first");
}

}  // namespace tavrel::InUse
