#pragma once

#include "core/Instant.h"
#include "disk/DiskIndex.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// What a tree occupied at one moment, to be kept and held against another day.
struct TreeRecord {
    /// Changes of files of at least this size are reported by name.
    static constexpr std::int64_t largeFile = 1'048'576;  // bytes
    /// Files are remembered from here on, so that one that grows past the limit does not appear from nowhere.
    static constexpr std::int64_t rememberedFile = largeFile / 2;

    std::filesystem::path root;
    Instant taken;
    DiskIndex::Info total;
    std::map<std::string, DiskIndex::Info> folders;  // by the path below the root
    std::map<std::string, std::int64_t> files;       // remembered ones, bytes, by their first path below

    bool operator==(const TreeRecord&) const = default;

    /// Walks the tree below `root` twice, for its folders and for its large files; blocks.
    [[nodiscard]] static TreeRecord take(const std::filesystem::path& root, Instant now);

    /// JSON; `decoded` gives nothing for any other text.
    [[nodiscard]] std::string encoded() const;
    [[nodiscard]] static std::optional<TreeRecord> decoded(std::string_view text);
};

/// One way in which a tree differs from an earlier record.
struct TreeChange {
    enum class Kind { appeared, gone, grew, shrank };

    std::string path;  // below the root; empty for the root itself
    Kind kind = Kind::grew;
    bool isFolder = false;
    std::int64_t delta = 0;  // bytes

    bool operator==(const TreeChange&) const = default;
};

/// What became larger or smaller, largest difference first, equal ones by path. A folder that came or went is
/// one change with all that it holds. In the others a change stands where it happened: for a large file by
/// its name, for the rest by the folder that holds it. The differences add up to that of the whole tree.
[[nodiscard]] std::vector<TreeChange> changes(const TreeRecord& before, const TreeRecord& now);

}  // namespace tavrel
