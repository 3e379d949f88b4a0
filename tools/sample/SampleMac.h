#pragma once

#include "profiles/Profile.h"

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace tavrel::sample {

/// A Mac's disk below a folder: "/" is that folder, "~" is "/Users/ana" in it. Everything it is told to hold
/// has a real size and a date.
class SampleMac {
  public:
    using Path = std::filesystem::path;

    /// `disk` must exist.
    explicit SampleMac(Path disk);

    [[nodiscard]] const Path& root() const { return root_; }
    [[nodiscard]] Path home() const { return root_ / "Users/ana"; }
    /// "~/x" and "/x" on this disk.
    [[nodiscard]] Path at(std::string_view path) const;

    Path file(std::string_view path, std::int64_t bytes, double daysOld = 0) const;
    /// A folder of equal files, dated like them.
    Path folder(std::string_view path, int files, std::int64_t bytesEach, double daysOld = 0) const;
    /// Room on disk that is allocated and not written: for sizes that only a large disk has.
    Path bulk(std::string_view path, std::int64_t bytes, double daysOld = 0) const;

    [[nodiscard]] Profile profile() const { return Profiles::macos(root_, home()); }
    [[nodiscard]] SafetyGuard guard(std::vector<Path> extraRoots = {}) const;

    /// Fills the disk with tens of thousands of files in every category, some with hostile names; with a
    /// share of them where a test needs no more.
    void fill(double share = 1) const;

  private:
    Path root_;
};

}  // namespace tavrel::sample
