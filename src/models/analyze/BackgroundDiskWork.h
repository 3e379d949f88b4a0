#pragma once

#include "models/analyze/DiskWork.h"
#include "models/support/Workers.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tavrel {

/// The disk work on pools of threads. Its end waits for what runs, so whoever wants a quick end stops that
/// first.
class BackgroundDiskWork final : public DiskWork {
  public:
    /// Files from this size on are large.
    static constexpr std::int64_t largeFile = 500LL * 1024 * 1024;
    static constexpr std::size_t mostLargeFiles = 200;

    /// `maxParallel` walks run at once; `packages` as `FolderListing` has them.
    BackgroundDiskWork(FolderListing::Packages packages, std::size_t maxParallel);

    void measure(Path path, std::stop_token stop, Done<SizeFindings> done) override;
    void list(Path folder, std::stop_token stop, Done<FolderListing> done) override;
    void findLargeFiles(Path under, std::stop_token stop, Done<LargeFiles> done) override;
    void vet(SafetyGuard guard, FolderListing::Paths paths, std::stop_token stop,
             Done<Reasons> done) override;
    void findPlaces(PlaceFinder find, Done<FoundPlaces> done) override;
    void discard(std::shared_ptr<void> something) override;

  private:
    const FolderListing::Packages packages_;
    Workers walks_;
    Workers listings_;  // never behind a walk: the first rows come at once
};

}  // namespace tavrel
