#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// What git tracks in one work tree: the names of its index, in git's order.
class GitIndex {
  public:
    using Path = std::filesystem::path;

    GitIndex(const GitIndex&) = delete;
    GitIndex& operator=(const GitIndex&) = delete;

    /// Nothing when it cannot be read whole: damaged, split, sparse, with other hashes than SHA-1, or larger
    /// than 512 MB. Only reads this one file; a link is followed.
    [[nodiscard]] static std::unique_ptr<const GitIndex> read(const Path& file);

    /// Whether the index has the very name, which also stands for a submodule, or any below it. `name` is
    /// relative to the work tree, without a slash at either end.
    [[nodiscard]] bool holds(std::string_view name) const;

  private:
    explicit GitIndex(std::string bytes) : bytes_(std::move(bytes)) {}

    /// The layouts that git writes by default; three times as fast as the library, which reads all of an
    /// entry. False for anything that is not entirely as expected.
    [[nodiscard]] bool readPlain();
    [[nodiscard]] bool readEntries(std::string_view body, std::size_t& at);
    [[nodiscard]] bool readByLibrary(const Path& file);

    std::string bytes_;  // what the names are views of
    std::vector<std::string_view> names_;
};

}  // namespace tavrel
