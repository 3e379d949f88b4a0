#include "models/analyze/BackgroundDiskWork.h"

#include "models/analyze/SizeService.h"

#include <utility>

namespace tavrel {
namespace {

using Path = std::filesystem::path;

constexpr unsigned threadsPerWalk = 2;  // several walks run side by side
constexpr std::size_t mostListings = 8;
constexpr std::size_t vettedPerStopCheck = 64;

SizeFindings runMeasure(const Path& path, const std::stop_token& stop, const DiskWork::Progress& progress) {
    if (stop.stop_requested()) return {};
    return SizeFindings::of(
        DiskIndex::measure(path, SizeService::recordDepth, stop, threadsPerWalk, progress.get()));
}

FolderListing runList(const Path& folder, const FolderListing::Packages& packages,
                      const std::stop_token& stop) {
    if (stop.stop_requested()) return {};
    return FolderListing::of(folder, packages, stop);
}

DiskWork::LargeFiles runFindLargeFiles(const Path& under, const std::stop_token& stop) {
    return DiskIndex::largeFiles(under, BackgroundDiskWork::largeFile, BackgroundDiskWork::mostLargeFiles,
                                 stop);
}

DiskWork::Reasons runVet(const SafetyGuard& guard, const FolderListing::Paths& paths,
                         const std::stop_token& stop) {
    DiskWork::Reasons reasons;
    reasons.reserve(paths->size());
    for (const std::string& path : *paths) {
        if (reasons.size() % vettedPerStopCheck == 0 && stop.stop_requested()) return {};
        reasons.push_back(guard.check(path).reason());
    }
    return reasons;
}

}  // namespace

BackgroundDiskWork::BackgroundDiskWork(FolderListing::Packages packages, Background::Duration patience)
    : packages_(std::move(packages)),
      walks_(Background::Kind::mayBeAbandoned, Background::noLimit),
      listings_(Background::Kind::mayBeAbandoned, mostListings, patience) {}

void BackgroundDiskWork::measure(Path path, std::stop_token stop, Progress progress,
                                 Done<SizeFindings> done) {
    auto work = [path = std::move(path), stop = std::move(stop), progress = std::move(progress)] {
        return runMeasure(path, stop, progress);
    };
    walks_.run(std::move(work), std::move(done));
}

void BackgroundDiskWork::list(Path folder, std::stop_token stop, Done<FolderListing> done) {
    auto work = [folder = std::move(folder), packages = packages_, stop = std::move(stop)] {
        return runList(folder, packages, stop);
    };
    listings_.run(std::move(work), std::move(done));
}

void BackgroundDiskWork::findLargeFiles(Path under, std::stop_token stop, Done<LargeFiles> done) {
    auto work = [under = std::move(under), stop = std::move(stop)] { return runFindLargeFiles(under, stop); };
    listings_.run(std::move(work), std::move(done));
}

void BackgroundDiskWork::vet(SafetyGuard guard, FolderListing::Paths paths, std::stop_token stop,
                             Done<Reasons> done) {
    auto work = [guard = std::move(guard), paths = std::move(paths), stop = std::move(stop)] {
        return runVet(guard, paths, stop);
    };
    listings_.run(std::move(work), std::move(done));
}

void BackgroundDiskWork::findPlaces(PlaceFinder find, Done<FoundPlaces> done) {
    listings_.run(std::move(find), std::move(done));
}

void BackgroundDiskWork::discard(std::shared_ptr<void> something) {
    listings_.run([held = std::move(something)]() mutable { return held = nullptr; }, [](const auto&) {});
}

}  // namespace tavrel
