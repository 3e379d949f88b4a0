#pragma once

#include "cleaning/SafetyGuard.h"
#include "disk/DiskIndex.h"
#include "disk/FolderListing.h"
#include "disk/SizeFindings.h"
#include "models/analyze/ExplorerPlaces.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace tavrel {

/// What the explorer has done on other threads. Each call returns at once; its answer comes later, once, on
/// the thread of the caller, also when it was stopped - but not after this object is gone.
class DiskWork {
  public:
    using Path = std::filesystem::path;
    template <typename Result>
    using Done = std::function<void(Result)>;
    using LargeFiles = std::vector<DiskIndex::LargeFile>;
    using Reasons = std::vector<std::string>;
    using FoundPlaces = std::vector<ExplorerPlaces::Found>;
    using PlaceFinder = std::function<FoundPlaces()>;

    virtual ~DiskWork() = default;

    virtual void measure(Path path, std::stop_token stop, Done<SizeFindings> done) = 0;
    virtual void list(Path folder, std::stop_token stop, Done<FolderListing> done) = 0;
    virtual void findLargeFiles(Path under, std::stop_token stop, Done<LargeFiles> done) = 0;
    /// Why the guard refuses each of `paths`; empty where it does not.
    virtual void vet(SafetyGuard guard, FolderListing::Paths paths, std::stop_token stop,
                     Done<Reasons> done) = 0;
    virtual void findPlaces(PlaceFinder find, Done<FoundPlaces> done) = 0;
    /// Takes time over letting go of something large.
    virtual void discard(std::shared_ptr<void> something) = 0;
};

}  // namespace tavrel
