#pragma once

#include "core/Text.h"

namespace tavrel {

/// What a family of systems says about its machines where the families differ.
struct MachineWords {
    Text::English noFan = "";
    Text::English fanUnavailable = "";  // there are fans, and they cannot be driven
    Text::English graphics = "";        // with no count of cores
    Text::English noGraphics = "";      // with no load either
    Text::English power = "";           // what the last figure of a process is
};

}  // namespace tavrel
