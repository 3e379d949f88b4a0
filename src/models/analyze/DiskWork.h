#pragma once

#include "cleaning/SafetyGuard.h"
#include "disk/DiskIndex.h"
#include "disk/FolderListing.h"
#include "disk/SizeFindings.h"
#include "models/analyze/ExplorerPlaces.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace tavrel {

/// Asynchronous disk operations of the explorer; all only read. Each call returns at once and calls `done`
/// once on the calling thread, later, also when stopped; never after this object's destruction. A call that
/// hangs holds up no other.
class DiskWork {
  public:
    using Path = std::filesystem::path;
    template <typename Result>
    using Done = std::function<void(Result)>;
    using LargeFiles = std::vector<DiskIndex::LargeFile>;
    /// Counts up while a walk goes on.
    using Progress = std::shared_ptr<std::atomic<std::uint64_t>>;
    using Reasons = std::vector<std::string>;
    using FoundPlaces = std::vector<ExplorerPlaces::Found>;
    using PlaceFinder = std::function<FoundPlaces()>;

    virtual ~DiskWork() = default;

    /// The caller bounds how many walks run at once.
    virtual void measure(Path path, std::stop_token stop, Progress progress, Done<SizeFindings> done) = 0;
    virtual void list(Path folder, std::stop_token stop, Done<FolderListing> done) = 0;
    virtual void findLargeFiles(Path under, std::stop_token stop, Done<LargeFiles> done) = 0;
    /// Why the guard refuses each of `paths`; empty where it does not.
    virtual void vet(SafetyGuard guard, FolderListing::Paths paths, std::stop_token stop,
                     Done<Reasons> done) = 0;
    virtual void findPlaces(PlaceFinder find, Done<FoundPlaces> done) = 0;
    /// Destroys something large, which takes time, on another thread.
    virtual void discard(std::shared_ptr<void> something) = 0;
};

}  // namespace tavrel
