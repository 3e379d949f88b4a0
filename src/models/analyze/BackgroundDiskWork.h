#pragma once

#include "models/analyze/DiskWork.h"
#include "models/support/Background.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tavrel {

/// The disk work on threads, which its destructor does not wait for.
class BackgroundDiskWork final : public DiskWork {
  public:
    /// Files from this size on are large.
    static constexpr std::int64_t largeFile = 500LL * 1024 * 1024;
    static constexpr std::size_t mostLargeFiles = 200;

    /// `packages` as `FolderListing` has them. Eight operations run at once, walks apart; those that take
    /// longer than `patience` do not count.
    explicit BackgroundDiskWork(FolderListing::Packages packages,
                                Background::Duration patience = Background::defaultPatience);

    void measure(Path path, std::stop_token stop, Progress progress, Done<SizeFindings> done) override;
    void list(Path folder, std::stop_token stop, Done<FolderListing> done) override;
    void findLargeFiles(Path under, std::stop_token stop, Done<LargeFiles> done) override;
    void vet(SafetyGuard guard, FolderListing::Paths paths, std::stop_token stop,
             Done<Reasons> done) override;
    void findPlaces(PlaceFinder find, Done<FoundPlaces> done) override;
    void discard(std::shared_ptr<void> something) override;

  private:
    const FolderListing::Packages packages_;
    Background walks_;
    Background listings_;  // never behind a walk: the first rows come at once
};

}  // namespace tavrel
