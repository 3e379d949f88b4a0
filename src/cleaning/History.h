#pragma once

#include "cleaning/TrashedItem.h"
#include "core/Instant.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

/// The user's record of every real removal: a JSON array, newest first, at most 500 entries. No state in
/// memory; two writers at one moment can lose an entry, never the file.
namespace tavrel::History {

struct Entry {
    std::string id;      // a UUID
    Instant date;        // kept to the second
    std::string action;  // "clean", "ai", "purge", "installers", "uninstall", "optimize"
    std::int64_t count = 0;
    std::int64_t bytes = 0;
    std::vector<std::string> paths;         // as Text::encodePath writes them
    std::vector<TrashedItem> trashed = {};  // those of `paths` that went to the Trash, where that is known
    bool operator==(const Entry&) const = default;
};

enum class State { missing, sound, damaged };

struct Record {
    State state = State::missing;
    std::vector<Entry> entries;  // empty unless sound
};

[[nodiscard]] Record load(const std::filesystem::path& file);

/// Prepends `entry` and rewrites the file atomically; a file that does not decode is renamed aside first.
/// Returns the error of the write. Callers may ignore it: a history that cannot be written stops no clean.
std::error_code record(const std::filesystem::path& file, const Entry& entry);

/// Removes the file; nothing happens where there is none.
void clear(const std::filesystem::path& file);

/// A fresh random UUID (RFC 4122, version 4), upper case.
[[nodiscard]] std::string newIdentifier();

/// A date as the file has it: ISO 8601 in UTC, to the second.
[[nodiscard]] std::string dateText(Instant date);

/// The file's form: a pretty-printed array with dates as ISO 8601 in UTC. "trashed" stands only where
/// something is. A list under it that makes no sense counts as none: what the runs did is worth more than
/// where its things lie, and the Trash has notes of its own.
[[nodiscard]] std::string encode(const std::vector<Entry>& entries);

}  // namespace tavrel::History
