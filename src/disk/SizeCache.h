#pragma once

#include "disk/DiskIndex.h"
#include "disk/SizeFindings.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// Sizes found by walks, until they are invalidated. Paths are absolute and standardised.
class SizeCache {
  public:
    using Info = DiskIndex::Info;

    struct Child {
        std::string path;
        Info info;
        bool operator==(const Child&) const = default;
    };

    /// Looks up the things of one folder. Valid until the cache changes.
    class Folder {
      public:
        [[nodiscard]] std::optional<Info> find(std::string_view name) const;

      private:
        friend class SizeCache;
        explicit Folder(const SizeFamily* family) : family_(family) {}
        const SizeFamily* family_;
    };

    [[nodiscard]] std::optional<Info> find(std::string_view path) const;
    [[nodiscard]] Folder in(std::string_view folder) const;

    /// The sub-folders of `path` whose size is known, largest first, at most `most`.
    [[nodiscard]] std::vector<Child> children(std::string_view path, std::size_t most) const;

    /// Keeps what a walk of `path` found. Its own figure replaces an older one; below it older figures stand.
    void store(std::string_view path, SizeFindings findings);

    /// Keeps the figures of folders that a walk had finished when it was cut off.
    void storeBelow(SizeFamily::ByFolder families);

    /// What was forgotten: letting go of it may take long.
    struct Evicted {
        std::vector<SizeFamily::Figures::node_type> figures;
        std::vector<SizeFamily::ByFolder::node_type> families;
    };
    /// Forgets the paths, everything below them and every folder above them; what stands beside them stays.
    /// Fastest for paths in their order.
    [[nodiscard]] Evicted forget(std::span<const std::string_view> paths);

  private:
    [[nodiscard]] const SizeFamily* family(std::string_view folder) const;
    [[nodiscard]] SizeFamily& makeFamily(std::string_view folder);
    void forgetBelow(std::string_view path, SizeFamily::ByFolder::iterator& near, Evicted& forgotten);
    void markUnknown(std::string_view path);

    SizeFamily::ByFolder families_;
};

}  // namespace tavrel
