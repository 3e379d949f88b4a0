#pragma once

#include "disk/DiskIndex.h"

#include <cstdint>
#include <filesystem>
#include <vector>

/// The answers that a plain fts walk gives, one entry after the other: what the team of threads must equal.
namespace tavrel::testing {

/// How fts goes down. By paths it sees nothing beyond PATH_MAX; by changing the working folder it does.
enum class Descent { byPath, byWorkingFolder };

DiskIndex::Measurement ftsMeasure(const std::filesystem::path& path, int recordDepth,
                                  Descent descent = Descent::byPath);
std::vector<DiskIndex::LargeFile> ftsLargeFiles(const std::filesystem::path& under, std::int64_t minimum,
                                                std::size_t limit);

/// What contents alone occupy, every name counted.
std::int64_t ftsContentSize(const std::filesystem::path& path);

/// Removes a tree of any depth.
void ftsRemove(const std::filesystem::path& path);

}  // namespace tavrel::testing
