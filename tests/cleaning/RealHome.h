#pragma once

#include "cleaning/CleanMode.h"
#include "profiles/Profile.h"
#include "support/Sandbox.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tavrel::testing {

/// A Linux home laid out as real programs lay theirs: small, dated, with the programs' own file formats.
class RealHome {
  public:
    using Path = std::filesystem::path;

    /// One thing of the home, and what a person is promised about it.
    struct Promise {
        CleanMode mode;
        const char* path;  // relative to the home; a folder ends in "/" and holds one file of 70,000 bytes
        double age;        // days since the last change
        const char* risk;  // "safe", "review", or "-" when it is not offered at all
        const char* goes;  // "gone" or "Trash"; "" when it is not offered
    };

    explicit RealHome(const std::vector<Promise>& promises);

    [[nodiscard]] Path home() const { return disk.path("home/ana"); }
    [[nodiscard]] Path at(const std::string& path) const;
    [[nodiscard]] Profile profile() const { return Profiles::linux(disk.root(), home()); }

    Sandbox disk;

  private:
    void write(const std::string& path, std::string_view content) const;
    void lay(const Promise& promise) const;
    void applications() const;
    void profiles() const;
    void projects() const;
};

}  // namespace tavrel::testing
