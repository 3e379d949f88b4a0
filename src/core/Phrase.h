#pragma once

#include "core/Text.h"

#include <string>

#include <fmt/format.h>

/// Sentences with figures in them, in the user's language. "{}" stands for each figure in turn.
namespace tavrel {

template <typename... Figures>
[[nodiscard]] std::string phrase(Text::English english, const Figures&... figures) {
    return fmt::format(fmt::runtime(Text::localized(english)), figures...);
}

/// The same where the first figure is a count that decides between two forms.
template <typename... Figures>
[[nodiscard]] std::string counted(Text::English one, Text::English many, unsigned long count,
                                  const Figures&... figures) {
    return fmt::format(fmt::runtime(Text::localized(one, many, count)), count, figures...);
}

}  // namespace tavrel
