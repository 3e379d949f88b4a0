#pragma once

#include "core/Text.h"
#include "monitoring/ProcessNotes.h"

namespace tavrel {

/// The texts about a machine that differ between families of systems.
struct PlatformTexts {
    Text::English noFan = "";
    Text::English fanUnavailable = "";  // there are fans, and they cannot be driven
    Text::English graphics = "";        // with no count of cores
    Text::English noGraphics = "";      // with no load either
    Text::English power = "";           // what the last figure of a process is
    ProcessNotes processNotes;
};

}  // namespace tavrel
