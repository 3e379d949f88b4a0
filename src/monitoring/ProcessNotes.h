#pragma once

#include "core/Text.h"

#include <span>
#include <string_view>

namespace tavrel {

/// What the processes of a known name are there for.
struct ProcessNote {
    /// `start` where what follows differs from process to process: a number, or what the kernel cut off.
    enum class Match { whole, start };

    std::string_view name;
    Text::English sentence;
    Match match = Match::whole;
};

/// The first row that matches counts.
using ProcessNotes = std::span<const ProcessNote>;

}  // namespace tavrel
