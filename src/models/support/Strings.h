#pragma once

#include <QString>
#include <string>

namespace tavrel {

/// Converts UTF-8. Invalid bytes become U+FFFD.
[[nodiscard]] inline QString toQString(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

}  // namespace tavrel
