#pragma once

#include <QUrl>
#include <filesystem>

/// Paths on their way through a screen and back: bytes that are no UTF-8 survive it, as no text does.
namespace tavrel::PathUrl {

[[nodiscard]] QUrl of(const std::filesystem::path& path);

/// Empty for what names no file of this machine.
[[nodiscard]] std::filesystem::path pathOf(const QUrl& url);

}  // namespace tavrel::PathUrl
