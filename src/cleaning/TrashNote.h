#pragma once

#include "core/Instant.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// What stands beside a thing in a Trash: a ".trashinfo" file of the freedesktop.org Trash specification 1.0.
struct TrashNote {
    std::string path;                                 // bytes, relative where the Trash is a volume's
    std::optional<std::chrono::local_seconds> moved;  // empty where the date makes no sense

    /// The longest note that is read: a path of the system's greatest length, every byte of it escaped, and
    /// room for the keys of others.
    static constexpr std::size_t maxSize = 65536;

    /// The name of the note on the entry `name`.
    [[nodiscard]] static std::string nameFor(const std::string& name) { return name + ".trashinfo"; }

    /// Nothing for any other content: without the head line or a path, with a broken escape or a NUL in it.
    [[nodiscard]] static std::optional<TrashNote> parsed(std::string_view content);

    /// The note `name` in the folder behind the handle. Nothing for a link, for what is no regular file, and
    /// for more than `maxSize`.
    [[nodiscard]] static std::optional<TrashNote> read(int folder, const std::string& name);
};

/// The moment as clocks on the wall show it, in which notes are written: local time without a zone.
[[nodiscard]] std::chrono::local_seconds localTime(Instant moment);
/// "2026-11-22T23:23:05", as notes have it.
[[nodiscard]] std::string noteDate(std::chrono::local_seconds moment);

}  // namespace tavrel
