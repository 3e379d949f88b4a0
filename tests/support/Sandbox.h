#pragma once

#include "core/Instant.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace tavrel::testing {

/// A temporary folder that goes with everything in it when the test ends. Paths given to it are relative to
/// it; folders above a path are made on the way.
class Sandbox {
  public:
    using Path = std::filesystem::path;

    /// `under` where a test needs a certain file system; the system's temporary folder otherwise.
    explicit Sandbox(const Path& under = {});
    ~Sandbox();
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    /// Resolved: no part of it is a link.
    [[nodiscard]] const Path& root() const { return root_; }
    [[nodiscard]] Path path(const Path& relative) const { return root_ / relative; }

    /// A file of `bytes` real bytes (no holes).
    Path file(const Path& relative, std::int64_t bytes = 0) const;
    Path text(const Path& relative, std::string_view content) const;
    Path folder(const Path& relative) const;
    /// A symbolic link at `relative` with exactly `target` in it.
    Path link(const Path& relative, const Path& target) const;

    /// Sets the modification date of the thing itself, links included.
    static void date(const Path& path, Instant modified);

  private:
    Path root_;
};

/// The present, as tests hand it to the logic.
[[nodiscard]] Instant now();
[[nodiscard]] Instant daysAgo(double days);

/// Bytes that `path` itself occupies on disk, as its metadata says.
[[nodiscard]] std::int64_t allocated(const std::filesystem::path& path);

[[nodiscard]] std::string contentOf(const std::filesystem::path& file);

}  // namespace tavrel::testing
